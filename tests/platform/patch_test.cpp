#include "platform/file_patch.hpp"
#include "support/temporary_folder.hpp"

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

} // namespace
} // namespace pelrath::test
