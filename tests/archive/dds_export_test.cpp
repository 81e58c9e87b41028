#include "archive/dds_export.hpp"

#include "archive/image_file_kind.hpp"
#include "archive_builder.hpp"
#include "support/temporary_folder.hpp"

namespace pelrath::test {
namespace {

struct DdsExportTest : testing::Test {
    void open(const std::string& type, const std::vector<LevelPlan>& levels,
              const std::map<std::int32_t, std::int32_t>& patches = {}) {
        ArchiveBuilder builder{CddsType::TypeCdds, {{"t.bmp", type, levels, 1000}}};
        builder.patches = patches;
        path = folder.write("a.cdds", builder.build());
        const InputFile opened{path};
        file = ArchiveFile{opened};
        archive = makeCatalogue(readArchive(opened));
    }
    TemporaryFolder folder;
    CddsArchive archive;
    std::string path;
    ArchiveFile file;
    DdsExport dds{archive, path, file};
};

TEST_F(DdsExportTest, LevelsAndChains) {
    const std::string data = std::string(1000, 'a') + std::string(1048, 'b');
    open("DXT1", {{256, 256, "x"}, {128, 128, "y"}, {64, 32, data}});
    (void)folder.write("out.dds", std::string(9000, 'x')); // longer than what replaces it
    dds.writeDdsLevelFile(folder.file("out.dds"), 0, 2);
    const std::string level =
        bytesOf("44445320 d124 07100800 d32 d64 d2048 52*00 d32 d4 44585431 20*00 00100000 16*00");
    EXPECT_TRUE(folder.read("out.dds") == level + data);

    const std::string top = std::string(64, 'a').replace(60, 4, "last"), below = "0123456789abcdef";
    open("dxt5", {{8, 4, top}, {4, 2, below, 9000}, {2, 1, below, 9000}});
    dds.writeDdsChainFile(folder.file("out.dds"), 0);
    const std::string chain =
        bytesOf("44445320 d124 07100A00 d4 d8 d64 d0 d3 44*00 d32 d4 44585435 20*00 08104000 16*00");
    EXPECT_TRUE(folder.read("out.dds") == chain + top + below + below);
    EXPECT_EQ(folder.list(), "a.cdds out.dds");
    EXPECT_EQ(nativeImageKind(archive.textures[0]), (NativeImageKind{"TGA", ImageFileKind::Tga}));
}

TEST_F(DdsExportTest, FailsWithoutTouchingWhatIsThere) {
    open("DXT1", {{4, 2, ""}, {64, 64, std::string(4096, 'x')}});
    (void)folder.write("out.dds", "before");
    folder.makeFolder("folder.dds");
    // The file, texture, level and how the failure begins.
    const std::tuple<const char*, int, int, std::string> cases[] = {
        {"out.dds", 0, 0, "5 the level of 4 x 2 has no data in " + path + ". Please choose another"},
        {"out.dds", 0, 2, "9 the texture \"t.bmp\" has no level 2 in " + path + ". Please choose another"},
        {"out.dds", 0, -1, "9 the texture \"t.bmp\" has no level -1 in " + path + ". Please choose another"},
        {"out.dds", 1, 0,
         "9 texture 2 is not among those read from " + path + ". Please read the archive again"},
        {"out.dds", -1, 0, "9 texture 0 is not among those read from "},
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
    const auto failureOfChain = [&] {
        return failureOf([&] { dds.writeDdsChainFile(folder.file("out.dds"), 0); }).number();
    };
    EXPECT_EQ(failureOfChain(), 5) << "a level has no data";
    // In a small archive, levels that share their bytes can ask for a file of any size.
    std::map<std::int32_t, std::int32_t> sizes{{999996, 0}};
    for (int i = 0; i < 3000; ++i) {
        sizes[1044 + 16 * i] = 1000000;
    }
    open("DXT1", std::vector<LevelPlan>(3000, {64, 64, "", 0}), sizes);
    EXPECT_EQ(failureOfChain(), 6);
    EXPECT_EQ(folder.read("out.dds"), "before");
    EXPECT_EQ(folder.list(), "a.cdds folder.dds out.dds");
}

} // namespace
} // namespace pelrath::test
