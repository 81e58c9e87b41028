#include "platform/full_path.hpp"
#include "platform/sub_folders.hpp"

#include "support/temporary_folder.hpp"

#include <cerrno>
#include <cstring>

namespace pelrath::test {
namespace {

TEST(FullPaths, AreResolvedByTheirLetters) {
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
        {"/" + std::string(259, 'x'), "", "/" + std::string(259, 'x')},
        {"/" + std::string(258, 'x') + e, "", "/" + std::string(258, 'x') + e},
        {"/" + std::string(260, 'x'), "", ""},
        {"/../" + std::string(259, 'x') + "/.//", "", "/" + std::string(259, 'x')}};
    for (const auto& [path, from, expected] : cases) {
        const FullPath full = fullPath(path, from);
        EXPECT_EQ(row(full.path, full.systemError), row(expected, expected.empty() ? ENAMETOOLONG : 0))
            << path;
    }
    EXPECT_EQ(fullPath("x").path, std::filesystem::current_path().string() + "/x");
    EXPECT_EQ(fullPath("").systemError, ENOENT);
    const auto before = std::filesystem::current_path();
    {
        const TemporaryFolder gone;
        std::filesystem::current_path(gone.path());
    }
    EXPECT_EQ(row(fullPath("x").systemError, fullPath("/x").path), row(ENOENT, "/x"));
    std::filesystem::current_path(before);
    EXPECT_EQ(systemMessage(EACCES), std::strerror(EACCES));
}

TEST(SubFolders, TellWhyTheyCannotBeReadOrMade) {
    const TemporaryFolder folder;
    (void)folder.write("file", "");
    EXPECT_EQ(
        row(readSubFolders(folder.file("file")).systemError, readSubFolders(folder.file("none")).systemError),
        row(ENOTDIR, ENOENT));
    EXPECT_EQ(row(makeFolder(folder.file("file")), makeFolder(folder.file("a/b"))), row(EEXIST, ENOENT));
}

} // namespace
} // namespace pelrath::test
