#include "platform/file_copy.hpp"
#include "platform/file_mode.hpp"
#include "platform/file_patch.hpp"
#include "platform/scratch_file.hpp"
#include "support/temporary_folder.hpp"

#include <sys/stat.h>

namespace pelrath::test {
namespace {

Bytes raw(const std::string& text) { return std::as_bytes(std::span{text}); }

TEST(OverwritingInPlace, ChangesTheGivenBytesAndNothingElse) {
    TemporaryFolder folder;
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
        FileCopy copy{InputFile{file}, folder.path(),
                      [&](std::uint64_t done, std::uint64_t total) { seen += row(done, total) + "; "; }};
        EXPECT_EQ(folder.names(), before);
        EXPECT_FALSE(copy.takeName(file));
        EXPECT_TRUE(copy.takeName(folder.file("b")));
    }
    EXPECT_TRUE(seen.starts_with("0, 34603009; ")) << seen;
    EXPECT_TRUE(folder.read("b") == folder.read("a"));
    EXPECT_EQ(fileMode(InputFile{folder.file("b")}), 0400U);
    const RuntimeError noFolder = failureOf([&] {
        FileCopy{InputFile{file}, folder.file("missing"), [](std::uint64_t, std::uint64_t) {}};
    });
    EXPECT_EQ(noFolder.number(), static_cast<int>(ErrorNumber::FileNotFound));
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
