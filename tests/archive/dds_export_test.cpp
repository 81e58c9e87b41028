#include "archive/dds_export.hpp"

#include "support/archive_builder.hpp"
#include "support/temporary_folder.hpp"

namespace pelrath::test {
namespace {

using Names = std::vector<std::string>;

struct DdsExportTest : testing::Test {
    // An archive of one texture whose levels take what they like of the file's bytes, which count up.
    void open(const std::string& type, const std::vector<MipmapRecord>& levels, std::size_t size = 4096) {
        ArchiveBuilder builder{CddsType::TypeCdds,
                               {{"t.bmp", type, std::vector(levels.size(), LevelPlan{0, 0, ""})}}};
        builder.build();
        for (std::int32_t at = builder.tableAt[0] + 40; const MipmapRecord& level : levels) {
            for (const std::int32_t value :
                 {level.dataOffset - at, level.dataSize, level.height, level.width}) {
                builder.patches[at] = value;
                at += 4;
            }
        }
        std::string bytes = builder.build();
        for (std::size_t i = bytes.size(); i < size; ++i) {
            bytes += static_cast<char>(i * 7 + i / 256);
        }
        read(bytes);
    }
    void read(const std::string& bytes) {
        path = folder.write("a.cdds", bytes);
        const InputFile opened{path};
        file = ArchiveFile{opened};
        archive = makeCatalogue(readArchive(opened));
    }
    [[nodiscard]] std::string archiveBytes(std::size_t at, std::size_t size) const {
        return folder.read("a.cdds").substr(at, size);
    }
    TemporaryFolder folder;
    CddsArchive archive;
    std::string path;
    ArchiveFile file;
    DdsExport dds{archive, path, file};
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

TEST_F(DdsExportTest, FailsWithoutTouchingWhatIsThere) {
    open("DXT1", {{"DXT1", 0, 0, 4, 2}, {"DXT1", 0, 4096, 64, 64}});
    (void)folder.write("out.dds", "before");
    std::filesystem::create_directory(folder.file("folder.dds"));
    // The file, texture, level and how the failure begins.
    const std::tuple<const char*, int, int, std::string> cases[] = {
        {"out.dds", 0, 0, "5 the level of 4 x 2 has no data in " + path + ". Please choose another"},
        {"out.dds", 0, 2, "9 the texture \"t.bmp\" has no level 2 in " + path + ". Please choose another"},
        {"out.dds", 0, -1, "9 the texture \"t.bmp\" has no level -1 in " + path + ". Please choose another"},
        {"out.dds", 1, 0,
         "9 texture 2 is not among those read from " + path + ". Please read the archive again"},
        {"out.dds", 0, 1, "6 Overflow"}, // where no file grows past a size
        {"new.dds", 0, 1, "6 Overflow"},
        {"folder.dds", 0, 1, "75 "},
        {"missing/out.dds", 0, 1, "76 "}};
    for (const auto& [name, texture, level, words] : cases) {
        const FullDisk disk{1000};
        const RuntimeError error = failureOf([&, texture = texture, level = level, name = name] {
            dds.writeDdsLevelFile(folder.file(name), static_cast<std::int16_t>(texture),
                                  static_cast<std::int16_t>(level));
        });
        EXPECT_TRUE((std::to_string(error.number()) + " " + error.description()).starts_with(words))
            << error.description();
    }
    EXPECT_THROW(dds.writeDdsChainFile(folder.file("out.dds"), 0), RuntimeError) << "a level has no data";
    // In a small archive, levels that share their bytes can ask for a file of any size.
    open("DXT1", std::vector<MipmapRecord>(3000, {"DXT1", 0, 1000000, 64, 64}), 1000000);
    const RuntimeError error = failureOf([&] { dds.writeDdsChainFile(folder.file("out.dds"), 0); });
    EXPECT_EQ(error.number(), static_cast<int>(ErrorNumber::Overflow));
    EXPECT_EQ(folder.read("out.dds"), "before");
    EXPECT_EQ(folder.names(), (Names{"a.cdds", "folder.dds", "out.dds"}));
}

// Two blocks side by side, red and blue, half transparent where the type has soft alpha.
TEST_F(DdsExportTest, OtherProgramsSeeTheSamePicture) {
    for (const auto& [type, blocks, row] :
         {std::tuple{"DXT1", bytesOf("00F8 6*00 1F00 6*00"), bytesOf("4*FF0000FF 4*0000FFFF")},
          {"DXT5", bytesOf("8080 6*00 00F8 6*00 8080 6*00 1F00 6*00"), bytesOf("4*FF000080 4*0000FF80")}}) {
        read(ArchiveBuilder{CddsType::TypeCdds,
                            {{"t", type, {{8, 4, blocks}, {4, 2, blocks.substr(blocks.size() / 2)}}}}}
                 .build());
        dds.writeDdsLevelFile(folder.file("level.dds"), 0, 0);
        dds.writeDdsChainFile(folder.file("chain.dds"), 0);
        for (const std::string name : {"level.dds", "chain.dds"}) {
            const std::string command =
                "convert '" + folder.file(name) + "[0]' -depth 8 'rgba:" + folder.file("seen") + "'";
            EXPECT_EQ(std::system(command.c_str()), 0);
            EXPECT_EQ(folder.read("seen"), row + row + row + row) << type << name;
        }
    }
}

} // namespace
} // namespace pelrath::test
