#include "transfer/dialog_harness.hpp"

namespace pelrath { namespace {

using test::row;

class Extraction : public testing::Test, protected test::DialogHarness {
protected:
    void extract(const std::string& clicks) {
        open(DialogMode::Extraction, [&] { click(clicks); });
    }
};

TEST_F(Extraction, WritesTheChosenFilesAndSaysSo) {
    // Type, files in the folder before, clicks, summary, files afterwards.
    const std::tuple<const char*, const char*, const char*, const char*, const char*> cases[] = {
        {"DXT1", "", "!", "wall-8x8.dds written|1 file(s) extracted.", "wall-8x8.dds"},
        {"DXT1", "", "2!", "wall-2x2.dds written|1 file(s) extracted.", "wall-2x2.dds"},
        {"DXT1", "", "N!", "0 file(s) extracted.", ""},
        {"DXT1", "", "e!", "wall-8x8.dds written|1 file(s) extracted.", "wall-8x8.dds"},
        {"DXT1", "wall-8x8.dds", "e!", "wall-8x8.dds not overwritten.|0 file(s) extracted.", "wall-8x8.dds"},
        {"DXT1", "wall-8x8.dds", "eo!", "wall-8x8.dds overwritten.|1 file(s) extracted.", "wall-8x8.dds"},
        {"DXT1", "", "eo!", "wall-8x8.dds written|1 file(s) extracted.", "wall-8x8.dds"},
        {"DXT5", "wall-4x4.dds", "x3!", "wall-8x8.dds written|wall-4x4.dds not overwritten.|wall-2x2.dds written|2 file(s) extracted.",
         "wall-2x2.dds wall-4x4.dds wall-8x8.dds"},
        {"DXT1", "", "n!", "wall-8x8.bmp written|1 file(s) extracted.", "wall-8x8.bmp"},
        {"DXT5", "", "n3!", "wall-1x1.tga written|1 file(s) extracted.", "wall-1x1.tga"},
        {"DXT5", "wall-8x8.tga", "n!", "wall-8x8.tga not overwritten.|0 file(s) extracted.", "wall-8x8.tga"},
        {"DXT5", "wall-8x8.tga", "no!", "wall-8x8.tga overwritten.|1 file(s) extracted.", "wall-8x8.tga"},
        {"DXT1", "", "nN!", "No mipmap selected.|0 file(s) extracted.", ""},
        {"DXT1", "", "x!n!", "wall-8x8.bmp written|1 file(s) extracted.", "wall-1x1.dds wall-2x2.dds wall-4x4.dds wall-8x8.bmp wall-8x8.dds"},
    };
    for (const auto& [type, before, clicks, summary, after] : cases) {
        std::filesystem::remove_all(folder.file("out"));
        std::filesystem::create_directory(folder.file("out"));
        if (*before != '\0') (void)folder.write("out/" + std::string{before}, std::string(10000, 'x'));
        use({CddsType::TypeCdds, {test::chain("wall.bmp", type, 8, 4)}});
        extract(clicks);
        EXPECT_EQ(row(this->summary(), files()), row(summary, after)) << clicks;
        const bool kept = this->summary().find("not overwritten") != std::string::npos;
        if (*before != '\0') { EXPECT_EQ(folder.read("out/" + std::string{before}) == std::string(10000, 'x'), kept) << clicks; }
    }
}

TEST_F(Extraction, AThirdStateWritesWithoutAWord) {
    use({CddsType::TypeCdds, {test::chain("wall.bmp", "DXT1", 4, 1)}});
    open(DialogMode::Extraction, [&] {
        dialog.chkOverwriteExistingFiles.setValue(CheckValue::Grey);
        click("!");
    });
    EXPECT_EQ(summary(), "wall-4x4.dds|1 file(s) extracted.");
}

// 5 x 6 texels in blocks of four colours, the rows from the top: two of red and green, then one of blue and white.
TEST_F(Extraction, ImagesAreTheRightWayUpAndKeepTheirAlpha) {
    for (const std::string type : {"DXT1", "DXT5"}) {
        std::string blocks;
        for (const char* color : {"00F8", "E007", "1F00", "FFFF"}) {
            blocks += (type == "DXT5" ? test::bytesOf("8080 6*00") : "") + test::bytesOf(color) + std::string(6, '\0');
        }
        use({CddsType::TypeCdds, {{"flag.x", type, {{5, 6, blocks}}}}});
        extract("n!");
        const bool alpha = type == "DXT5";
        const std::string a = alpha ? "80" : "";
        const auto times = [](const std::string& color, int n) {
            std::string text;
            for (int i = 0; i < n; ++i) text += color;
            return text;
        };
        const std::string top = times("0000FF" + a, 4) + "00FF00" + a + (alpha ? "" : "00");
        const std::string bottom = times("FF0000" + a, 4) + "FFFFFF" + a + (alpha ? "" : "00");
        const std::string file = folder.read(alpha ? "out/flag-5x6.tga" : "out/flag-5x6.bmp");
        const std::string head = file.substr(0, alpha ? 18 : 54);
        const bool fromTop = alpha && (head[17] & 0x20) != 0;
        const std::string rows = fromTop ? times(top, 4) + times(bottom, 2) : times(bottom, 2) + times(top, 4);
        EXPECT_EQ(file.substr(head.size(), test::bytesOf(rows).size()), test::bytesOf(rows)) << type;
    }
}

TEST_F(Extraction, HandsTheFileToTheEditor) {
    use({CddsType::TypeCdds, {test::chain("a b.bmp", "DXT1", 8, 3)}});
    const auto launch = [&](const std::string& clicks) {
        associations.opened.clear();
        open(DialogMode::Extraction, [&] {
            dialog.chkLaunchEditor.setChecked(true);
            click(clicks);
        });
        std::string opened;
        for (const std::string& path : associations.opened) opened += path.substr(folder.path().size() + 5) + ";";
        EXPECT_FALSE(fileExists(associations.probe)) << associations.probe;
        return row(opened, summary());
    };
    EXPECT_EQ(launch("!"), ", a b-8x8.dds written|1 file(s) extracted.|No executable found for dds");
    EXPECT_EQ(launch("n!"), ", a b-8x8.bmp written|1 file(s) extracted.|No executable found for bmp");
    EXPECT_EQ(launch("N!"), ", 0 file(s) extracted.|No executable found for ");
    associations.executable = "/bin/true";
    EXPECT_EQ(launch("xN12!"), "a b-8x8.dds;, a b-4x4.dds written|a b-2x2.dds written|2 file(s) extracted.");
    EXPECT_EQ(launch("2!"), "a b-2x2.dds;, a b-2x2.dds not overwritten.|0 file(s) extracted.");
    EXPECT_EQ(launch("on1!"), "a b-4x4.bmp;, a b-4x4.bmp written|1 file(s) extracted.");
    EXPECT_EQ(launch("N!"), ", 0 file(s) extracted.|No executable found for ");
    EXPECT_EQ(associations.probe.rfind(std::filesystem::temp_directory_path().string() + "/~", 0), 0U);
}

TEST_F(Extraction, AFailureIsToldAndLeavesNothingHalfWritten) {
    const std::tuple<const char*, const char*, std::function<void()>, const char*, const char*, const char*> cases[] = {
        {"../up.bmp", "!", [] {}, "Error : 52 ", "0 file(s) extracted.", ""},
        {"a\\b.bmp", "n!", [] {}, "Error : 52 ", "", ""},
        {"..bmp", "x!", [] {}, "Error : 52 ", "0 file(s) extracted.", ""},
        {"b\x07.bmp", "e!", [] {}, "Error : 52 ", "0 file(s) extracted.", ""},
        {"\x81.bmp", "!", [] {}, "Error : 52 ", "0 file(s) extracted.", ""},
        {"w.bmp", "!o!", [this] { std::filesystem::permissions(folder.write("out/w-8x8.dds", "old"), std::filesystem::perms::owner_read); },
         "Error : 70 ", "0 file(s) extracted.", "w-8x8.dds"},
        {"w.bmp", "x!", [this] { std::filesystem::create_directory(folder.file("out/w-4x4.dds")); }, "ImageSave Error : 75 ",
         "w-8x8.dds written|1 file(s) extracted.", "w-4x4.dds w-8x8.dds"},
        {"w.bmp", "n!", [this] { std::filesystem::create_directory(folder.file("out/w-8x8.bmp")); }, "Error", "0 file(s) extracted.", "w-8x8.bmp"},
        {"w.bmp", "!", [this] { std::filesystem::remove_all(folder.file("out")); }, "Error : 76 ", "0 file(s) extracted.", nullptr},
        {"w.bmp", "e!", [this] { std::filesystem::remove(session.archivePath); }, "Error : 53 ", "0 file(s) extracted.", ""},
        {"w.bmp", "n!", [this] { std::filesystem::remove(session.archivePath); }, "Error : 53 ", "", ""},
        {"w.bmp", "e!", [this] { std::filesystem::resize_file(session.archivePath, 100); }, "Error : 62 ", "0 file(s) extracted.", ""},
    };
    for (const auto& [name, clicks, spoil, words, summary, after] : cases) {
        std::filesystem::remove_all(folder.file("out"));
        std::filesystem::create_directory(folder.file("out"));
        use({CddsType::TypeCdds, {test::chain(name, "DXT1", 8, 3)}});
        spoil();
        extract(clicks);
        boxes.expect(words);
        EXPECT_EQ(this->summary(), summary) << name << clicks;
        if (after != nullptr) { EXPECT_EQ(files(), after) << name << clicks; }
    }
}

TEST_F(Extraction, AFullDiskLeavesTheOldFile) {
    use({CddsType::TypeCdds, {test::chain("wall.bmp", "DXT1", 64, 2)}});
    (void)folder.write("out/wall-64x64.dds", "old");
    const test::FullDisk full{1000};
    extract("o!");
    boxes.expect("ImageSave Error : ");
    EXPECT_EQ(row(files(), folder.read("out/wall-64x64.dds"), summary()), "wall-64x64.dds, old, 0 file(s) extracted.");
}

}} // namespace pelrath
