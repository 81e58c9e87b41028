#include "platform/posix/file_mode.hpp"
#include "platform/posix/file_patch.hpp"
#include "platform/posix/full_path.hpp"
#include "platform/posix/named_files.hpp"
#include "platform/posix/sub_folders.hpp"
#include "support/refusals.hpp"
#include "support/temporary_folder.hpp"

#include <cerrno>
#include <cstring>

namespace pelrath::test {
namespace {

Bytes raw(const std::string& text) { return std::as_bytes(std::span{text}); }

TEST(Files, PathsAreTakenApartAndPutTogether) {
    EXPECT_EQ(row(joinPath("/a", "b"), joinPath("/a/", "b"), joinPath("/", "b"), joinPath("", "b")),
              "/a/b, /a/b, /b, b");
    const std::pair<const char*, const char*> parts[] = {
        {"/a/b.c", "/a, /a/b"}, {"/b", "/, /b"}, {"b.c.d", ", b.c"}, {"b", ", b"}, {".bmp", ", "}};
    for (const auto& [path, expected] : parts) {
        EXPECT_EQ(row(parentFolder(path), withoutExtension(path)), expected);
    }
}

TEST(Files, ReadsOnlyInsideTheFile) {
    const TemporaryFolder folder;
    const std::string digits = "0123456789";
    const InputFile file{folder.write("f", digits)};
    // Offset, count, the number of the failure.
    const std::tuple<std::uint64_t, std::size_t, int> cases[] = {
        {0, 10, 0}, {10, 0, 0}, {9, 1, 0}, {9, 2, 62}, {11, 0, 62}, {~std::uint64_t{0}, 2, 62}};
    for (const auto& [offset, count, number] : cases) {
        std::string bytes(count, ' ');
        const RuntimeError failure =
            failureOf([&] { file.readAt(offset, std::as_writable_bytes(std::span{bytes})); });
        EXPECT_EQ(failure.number(), number) << offset;
        EXPECT_TRUE(number != 0 || bytes == digits.substr(offset, count)) << offset;
    }
    std::filesystem::resize_file(folder.file("f"), 4); // shrinks while it is open
    std::array<std::byte, 10> all{};
    EXPECT_THROW(file.readAt(0, all), RuntimeError);
    folder.makePipe("pipe");
    EXPECT_THROW(InputFile{folder.file("pipe")}, RuntimeError);
}

TEST(Files, ReplacingKeepsTheOldPermissions) {
    const TemporaryFolder folder;
    const std::string path = folder.write("f", "old and longer"), text = "new";
    folder.permit("f", 0640);
    const std::array<Bytes, 2> pieces{raw(text), raw(text)};
    replaceFile(path, pieces, Durability::Flushed);
    EXPECT_EQ(row(folder.read("f"), fileMode(InputFile{path})), row("newnew", 0640));
    std::filesystem::create_symlink("f", folder.file("link")); // leads to the file that is meant
    replaceFile(folder.file("link"), std::span{pieces}.first(1), Durability::Scratch);
    EXPECT_EQ(row(std::filesystem::is_symlink(folder.file("link")), folder.read("f")), "true, new");
    folder.makePipe("pipe");
    EXPECT_THROW(replaceFile(folder.file("pipe"), pieces, Durability::Scratch), RuntimeError);
    FileReplacement kept{folder.file("late"), OldFile::Kept};
    (void)folder.write("late", "first");
    EXPECT_THROW(kept.finish(Durability::Scratch), RuntimeError);
    EXPECT_EQ(folder.read("late"), "first");
    // A name as long as the system allows leaves no room for anything appended to it.
    const std::string longest = folder.file(std::string(255, 'n'));
    replaceFile(longest, pieces, Durability::Scratch);
    EXPECT_TRUE(fileExists(longest));
    removeFile(longest);
    removeFile(longest); // gone already
    EXPECT_EQ(folder.list(), "f late link pipe");
}

TEST(Files, OverwritingChangesTheGivenBytesOfTheOpenedFileAndNothingElse) {
    const TemporaryFolder folder;
    const std::string file = folder.write("a", "0123456789");
    std::filesystem::create_symlink(file, folder.file("link"));
    std::filesystem::create_hard_link(file, folder.file("twin"));
    const InputFile opened{folder.file("link")};
    overwrite(opened, 3, raw("abc"));
    for (const std::uint64_t beyond : {std::uint64_t{8}, ~std::uint64_t{0}}) {
        EXPECT_EQ(failureOf([&] { overwrite(opened, beyond, raw("ABC")); }).number(), 62);
    }
    std::filesystem::rename(folder.write("b", "of another"), file);
    overwrite(opened, 9, raw("z"));
    EXPECT_EQ(row(folder.read("twin"), folder.read("a")), "012abc678z, of another");
    const Refusal badDisk{Call::Flush, EIO};
    EXPECT_EQ(failureOf([&] { flushOverwritten(opened); }).number(), 57);
}

TEST(RuntimeErrors, NumbersAndSentences) {
    const std::pair<int, const char*> cases[] = {
        {ENOSPC, "61, s, Disk full (p)"},
        {EIO, "57, s, Device I/O error (p)"},
        {EPROTO, "57, s, Device I/O error (p)"}, // as all that is in no table
        {0, "57, s, Device I/O error (p)"},
        {EOVERFLOW, "6, s, Overflow (p)"},
        {ENAMETOOLONG, "52, s, Bad file name or number (p: a name in it, or the whole, is too long; please "
                       "choose a folder with a shorter path)"}};
    for (const auto& [system, expected] : cases) {
        const RuntimeError error = makeSystemError(system, "s", "p");
        EXPECT_EQ(row(error.number(), error.source(), error.description()), expected) << system;
    }
    EXPECT_EQ(systemMessage(EACCES), std::strerror(EACCES));
}

TEST(Folders, PathsAreResolvedByTheirLetters) {
    const std::string e = "\u00E9";
    // As it is given, where from, and what it means; no path: too long.
    const std::array<std::string, 3> cases[] = {
        {"/", "", "/"},
        {"//a///b/", "", "/a/b"},
        {"/a/./b/../c/.", "", "/a/c"},
        {"/../../a", "", "/a"},
        {"/a/..", "", "/"},
        {"/...", "", "/..."},
        {"b c/" + e, "/a", "/a/b c/" + e},
        {"../b", "/a", "/b"},
        {".", "/a", "/a"},
        {"~", "/a", "/a/~"},
        {"/" + std::string(258, 'x') + e, "", "/" + std::string(258, 'x') + e},
        {"/" + std::string(260, 'x'), "", ""},
        {"/../" + std::string(259, 'x') + "/.//", "", "/" + std::string(259, 'x')}};
    for (const auto& [path, from, expected] : cases) {
        const FullPath full = fullPath(path, from);
        EXPECT_EQ(row(full.path, full.systemError), row(expected, expected.empty() ? ENAMETOOLONG : 0))
            << path;
    }
    const auto before = std::filesystem::current_path();
    EXPECT_EQ(fullPath("x").path, before.string() + "/x");
    EXPECT_EQ(fullPath("").systemError, ENOENT);
    {
        const TemporaryFolder gone;
        std::filesystem::current_path(gone.path());
    }
    EXPECT_EQ(row(fullPath("x").systemError, fullPath("/x").path), row(ENOENT, "/x"));
    std::filesystem::current_path(before);
}

TEST(Folders, TellWhyTheyCannotBeReadOrMade) {
    const TemporaryFolder folder;
    const std::string file = folder.write("file", "");
    EXPECT_EQ(row(readSubFolders(file).systemError, readSubFolders(folder.file("none")).systemError),
              row(ENOTDIR, ENOENT));
    EXPECT_EQ(row(makeFolder(file), makeFolder(folder.file("a/b"))), row(EEXIST, ENOENT));
}

TEST(NamedFiles, AreThoseOnTheDiskThatATextNames) {
    const TemporaryFolder folder;
    const std::string one = folder.write("a b.dds", ""), two = folder.write("c", "");
    const std::tuple<const char*, std::string, std::vector<std::string>> cases[] = {
        {"a summary", one + " written\r\n" + two + " not overwritten.\r\n2 file(s).", {one, two}},
        {"a message", "The file \"" + two + "\" and (" + one + ").", {two, one}},
        {"one named twice", two + ": " + two, {two}},
        {"a path alone", one, {one}},
        {"a folder, and what is not there", folder.path() + " " + one + "x", {}},
        {"a part of another path", "x" + two, {}}};
    for (const auto& [what, text, files] : cases) {
        EXPECT_EQ(filesNamedIn(text), files) << what;
    }
}

} // namespace
} // namespace pelrath::test
