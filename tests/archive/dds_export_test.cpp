#include "archive/dds_export.hpp"

#include "support/temporary_folder.hpp"

namespace pelrath::test {
namespace {

using Names = std::vector<std::string>;

struct DdsExportTest : testing::Test {
    // A file of counting bytes, and a texture whose levels take of them what they like.
    void open(const std::string& type, std::vector<MipmapRecord> levels) {
        std::string bytes(4096, '\0');
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            bytes[i] = static_cast<char>(i * 7 + i / 256);
        }
        path = folder.write("a.cdds", bytes);
        const auto count = static_cast<std::int32_t>(levels.size());
        archive.textures = {{"t.bmp", type, count, std::move(levels)}};
    }
    [[nodiscard]] std::string archiveBytes(std::size_t at, std::size_t size) const {
        return folder.read("a.cdds").substr(at, size);
    }
    ErrorNumber failureOfLevel(const std::string& name, std::int16_t texture, std::int16_t level) {
        return ErrorNumber{
            failureOf([&] { dds.writeDdsLevelFile(folder.file(name), texture, level); }).number()};
    }

    TemporaryFolder folder;
    CddsArchive archive;
    std::string path;
    DdsExport dds{archive, path};
};

TEST_F(DdsExportTest, LevelsAndChains) {
    open("DXT1", {{"DXT1", 0, 1, 256, 256}, {"DXT1", 0, 1, 128, 128}, {"DXT1", 1000, 2048, 64, 32}});
    (void)folder.write("out.dds", std::string(9000, 'x')); // longer than what replaces it
    dds.writeDdsLevelFile(folder.file("out.dds"), 0, 2);
    const std::string level =
        bytesOf("44445320 d124 07100800 d32 d64 d2048 52*00 d32 d4 44585431 20*00 00100000 16*00");
    EXPECT_TRUE(folder.read("out.dds") == level + archiveBytes(1000, 2048));

    open("dxt5", {{"dxt5", 500, 64, 8, 4}, {"dxt5", 100, 16, 4, 2}, {"dxt5", 100, 16, 2, 1}});
    dds.writeDdsChainFile(folder.file("out.dds"), 0);
    const std::string chain =
        bytesOf("44445320 d124 07100A00 d4 d8 d64 d0 d3 44*00 d32 d4 44585435 20*00 08104000 16*00");
    EXPECT_TRUE(folder.read("out.dds") ==
                chain + archiveBytes(500, 64) + archiveBytes(100, 16) + archiveBytes(100, 16));
    EXPECT_EQ(folder.names(), (Names{"a.cdds", "out.dds"}));
}

// In a small archive, levels that share their bytes can ask for a file of any size.
TEST_F(DdsExportTest, AChainBeyondAnyFileIsRefusedBeforeItIsRead) {
    open("DXT1", {});
    std::filesystem::resize_file(path, 1000000);
    archive.textures[0].mipmaps.assign(3000, {"DXT1", 0, 1000000, 64, 64});
    const RuntimeError error = failureOf([&] { dds.writeDdsChainFile(folder.file("out.dds"), 0); });
    EXPECT_EQ(error.number(), static_cast<int>(ErrorNumber::Overflow));
    EXPECT_EQ(folder.names(), Names{"a.cdds"});
}

TEST_F(DdsExportTest, FailsWithoutTouchingWhatIsThere) {
    open("DXT1", {{"DXT1", 0, 0, 4, 4}, {"DXT1", 4000, 96, 4, 4}, {"DXT1", 4000, 97, 4, 4}});
    (void)folder.write("out.dds", "before");
    EXPECT_EQ(failureOfLevel("out.dds", 0, 0), ErrorNumber::InvalidCall);  // no data
    EXPECT_EQ(failureOfLevel("out.dds", 0, 2), ErrorNumber::InputPastEnd); // the archive is too short
    for (const auto& [texture, level] : {std::pair{0, 3}, {0, -1}, {1, 0}, {-1, 0}}) {
        EXPECT_EQ(
            failureOfLevel("out.dds", static_cast<std::int16_t>(texture), static_cast<std::int16_t>(level)),
            ErrorNumber::SubscriptOutOfRange);
    }
    EXPECT_THROW(dds.writeDdsChainFile(folder.file("out.dds"), 0), RuntimeError);
    EXPECT_EQ(folder.read("out.dds"), "before");
    EXPECT_EQ(dds.readLevelData(0, 1).size(), 96U);
}

TEST_F(DdsExportTest, AWriteThatFailsLeavesTheOldFileAndNoOther) {
    open("DXT1", {{"DXT1", 0, 4096, 64, 64}});
    (void)folder.write("out.dds", "before");
    {
        const FullDisk disk{1000};
        for (const char* name : {"out.dds", "new.dds"}) {
            EXPECT_NE(failureOfLevel(name, 0, 0), ErrorNumber{}) << name;
        }
    }
    EXPECT_EQ(folder.read("out.dds"), "before");
    EXPECT_EQ(folder.names(), (Names{"a.cdds", "out.dds"}));
    std::filesystem::create_directory(folder.file("folder.dds"));
    for (const char* name : {"folder.dds", "missing/out.dds"}) {
        EXPECT_NE(failureOfLevel(name, 0, 0), ErrorNumber{}) << name;
    }
}

// Two blocks side by side, red and blue, half transparent where the type has soft alpha.
TEST(DdsFiles, OtherProgramsSeeTheSamePicture) {
    const std::string pillow =
        "/usr/bin/python3 -c 'import sys; from PIL import Image; "
        "sys.stdout.buffer.write(Image.open(sys.argv[1]).convert(\"RGBA\").tobytes())' ";
    const std::tuple<std::string, std::string, std::string> cases[] = {
        {"DXT1", bytesOf("00F8 6*00 1F00 6*00"),
         bytesOf("FF0000FF FF0000FF FF0000FF FF0000FF 0000FFFF 0000FFFF 0000FFFF 0000FFFF")},
        {"DXT5", bytesOf("8080 6*00 00F8 6*00 8080 6*00 1F00 6*00"),
         bytesOf("FF000080 FF000080 FF000080 FF000080 0000FF80 0000FF80 0000FF80 0000FF80")}};
    for (const auto& [type, blocks, row] : cases) {
        const TemporaryFolder folder;
        const std::string path = folder.write("a.cdds", blocks + blocks);
        const auto size = static_cast<std::int32_t>(blocks.size());
        const CddsArchive archive{
            CddsType::TypeCdds, {{"t", type, 2, {{type, 0, size, 8, 4}, {type, size, size / 2, 4, 2}}}}, 2};
        const DdsExport dds{archive, path};
        dds.writeDdsLevelFile(folder.file("level.dds"), 0, 0);
        dds.writeDdsChainFile(folder.file("chain.dds"), 0);
        const auto outputOf = [&](const std::string& command) {
            EXPECT_EQ(std::system((command + " > '" + folder.file("seen") + "'").c_str()), 0) << command;
            return folder.read("seen");
        };
        for (const char* name : {"level.dds", "chain.dds"}) {
            EXPECT_EQ(outputOf("convert '" + folder.file(name) + "[0]' -depth 8 rgba:-"),
                      row + row + row + row)
                << type << name;
            EXPECT_EQ(outputOf(pillow + folder.file(name)), row + row + row + row) << type << name;
        }
    }
}

} // namespace
} // namespace pelrath::test
