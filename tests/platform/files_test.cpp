#include "platform/file_mode.hpp"
#include "platform/files.hpp"

#include "support/temporary_folder.hpp"

#include <cerrno>

#include <sys/stat.h>
#include <unistd.h>

namespace pelrath::test {
namespace {

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
    EXPECT_EQ(truncate(folder.file("f").c_str(), 4), 0); // shrinks while it is open
    std::array<std::byte, 10> all{};
    EXPECT_THROW(file.readAt(0, all), RuntimeError);
    ASSERT_EQ(mkfifo(folder.file("pipe").c_str(), 0600), 0);
    EXPECT_THROW(InputFile{folder.file("pipe")}, RuntimeError);
}

TEST(Files, ReplacingKeepsTheOldPermissions) {
    const TemporaryFolder folder;
    const std::string path = folder.write("f", "old and longer");
    ASSERT_EQ(chmod(path.c_str(), 0640), 0);
    const std::string text = "new";
    const std::array<Bytes, 2> pieces{std::as_bytes(std::span{text}), std::as_bytes(std::span{text})};
    replaceFile(path, pieces, Durability::Flushed);
    EXPECT_EQ(folder.read("f"), "newnew");
    EXPECT_EQ(fileMode(InputFile{path}), 0640U);
    std::filesystem::create_symlink("f", folder.file("link")); // leads to the file that is meant
    replaceFile(folder.file("link"), std::span{pieces}.first(1), Durability::Scratch);
    EXPECT_EQ(row(std::filesystem::is_symlink(folder.file("link")), folder.read("f")), "true, new");
    std::filesystem::remove(folder.file("link"));
    ASSERT_EQ(mkfifo(folder.file("pipe").c_str(), 0600), 0);
    EXPECT_THROW(replaceFile(folder.file("pipe"), pieces, Durability::Scratch), RuntimeError);
    std::filesystem::remove(folder.file("pipe"));
    // A name as long as the system allows leaves no room for anything appended to it.
    const std::string longest = folder.file(std::string(255, 'n'));
    replaceFile(longest, pieces, Durability::Scratch);
    EXPECT_TRUE(fileExists(longest));
    removeFile(longest);
    removeFile(longest); // gone already
    EXPECT_EQ(folder.names(), std::vector<std::string>{"f"});
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
}

} // namespace
} // namespace pelrath::test
