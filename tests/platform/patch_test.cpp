#include "platform/file_copy.hpp"
#include "platform/file_mode.hpp"
#include "platform/file_patch.hpp"
#include "platform/scratch_file.hpp"
#include "support/temporary_folder.hpp"

#include <sys/stat.h>
#include <sys/wait.h>

namespace pelrath::test {
namespace {

Bytes raw(const std::string& text) { return std::as_bytes(std::span{text}); }

TEST(OverwritingInPlace, ChangesTheGivenBytesAndNothingElse) {
    TemporaryFolder folder;
    const std::string file = folder.write("a", "0123456789");
    std::filesystem::create_symlink(file, folder.file("link"));
    std::filesystem::create_hard_link(file, folder.file("twin"));
    overwriteWholly(folder.file("link"), 3, raw("abc"));
    overwriteWholly(file, 9, raw("z"));
    EXPECT_EQ(folder.read("twin"), "012abc678z");
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "a child is left";
    EXPECT_EQ(errno, ECHILD);
}

TEST(OverwritingInPlace, FailsBeforeTheFirstByteWhereItIsImpossible) {
    TemporaryFolder folder;
    (void)folder.write("a", "0123456789");
    std::filesystem::create_directory(folder.file("folder"));
    mkfifo(folder.file("pipe").c_str(), 0600);
    const std::tuple<const char*, std::uint64_t, ErrorNumber> cases[] = {
        {"missing", 0, ErrorNumber::FileNotFound}, {"folder", 0, ErrorNumber::PathFileAccess},
        {"pipe", 0, ErrorNumber::PathFileAccess},  {"a", 8, ErrorNumber::InputPastEnd},
        {"a", ~0ULL, ErrorNumber::InputPastEnd},   {"a/b", 0, ErrorNumber::PathNotFound}};
    for (const auto& [name, offset, number] : cases) {
        EXPECT_EQ(failureOf([&] { overwriteWholly(folder.file(name), offset, raw("abc")); }).number(),
                  static_cast<int>(number))
            << name;
    }
    EXPECT_EQ(folder.read("a"), "0123456789");
    EXPECT_FALSE(std::filesystem::exists(folder.file("missing")));
}

TEST(CopyOfAFile, HasNoNameBeforeItIsWhole) {
    TemporaryFolder folder;
    const std::uint64_t size = (std::uint64_t{33} << 20) + 1;
    const std::string file = folder.write("a", "start");
    std::filesystem::resize_file(file, size);
    std::filesystem::permissions(file, std::filesystem::perms::owner_read);
    const std::vector<std::string> before = folder.names();
    std::string seen;
    {
        FileCopy copy{file, folder.path(),
                      [&](std::uint64_t done, std::uint64_t total) { seen += row(done, total) + "; "; }};
        EXPECT_EQ(folder.names(), before);
        EXPECT_FALSE(copy.takeName(file));
        EXPECT_TRUE(copy.takeName(folder.file("b")));
    }
    EXPECT_TRUE(seen.starts_with("0, 34603009; ")) << seen;
    EXPECT_TRUE(folder.read("b") == folder.read("a"));
    EXPECT_EQ(fileMode(folder.file("b")), 0400U);
    const auto copying = [&](const std::string& from, const std::string& to) {
        return failureOf([&] {
                   FileCopy{folder.file(from), folder.file(to), [](std::uint64_t, std::uint64_t) {}};
               })
            .number();
    };
    EXPECT_EQ(copying("missing", ""), static_cast<int>(ErrorNumber::FileNotFound));
    EXPECT_EQ(copying("", ""), static_cast<int>(ErrorNumber::PathFileAccess));
    EXPECT_EQ(copying("a", "missing"), static_cast<int>(ErrorNumber::FileNotFound));
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"a", "b"}));
}

TEST(FileForAWhile, IsGoneBeforeAndAfter) {
    TemporaryFolder folder;
    (void)folder.write("a", "old");
    {
        const ScratchFile scratch{folder.file("a")};
        EXPECT_TRUE(folder.names().empty());
        writeInto(folder.write("a", "new"), 2, raw("xyz"));
        EXPECT_EQ(folder.read("a"), "nexyz");
    }
    EXPECT_TRUE(folder.names().empty());
}

} // namespace
} // namespace pelrath::test
