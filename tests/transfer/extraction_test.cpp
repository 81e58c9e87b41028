#include "transfer/transfer_harness.hpp"

namespace pelrath::test {
namespace {

class Extraction : public testing::Test, protected TransferHarness {};

TEST_F(Extraction, WritesTheChosenFilesAndSaysSo) {
    // Type, files in the folder before, clicks, summary, files afterwards.
    const std::tuple<const char*, const char*, const char*, const char*, const char*> cases[] = {
        {"DXT1", "", "!", "out/wall-8x8.dds written|1 file(s) extracted.", "wall-8x8.dds"},
        {"DXT1", "", "2!", "out/wall-2x2.dds written|1 file(s) extracted.", "wall-2x2.dds"},
        {"DXT1", "", "N!", "0 file(s) extracted.", ""},
        {"DXT1", "", "e!", "out/wall-8x8.dds written|1 file(s) extracted.", "wall-8x8.dds"},
        {"DXT1", "wall-8x8.dds", "e!", "out/wall-8x8.dds not overwritten.|0 file(s) extracted.",
         "wall-8x8.dds"},
        {"DXT1", "wall-8x8.dds", "eo!", "out/wall-8x8.dds overwritten.|1 file(s) extracted.", "wall-8x8.dds"},
        {"DXT1", "", "g!", "out/wall-8x8.dds|1 file(s) extracted.",
         "wall-8x8.dds"}, // a third state writes without a word
        {"DXT1", "", "eo!", "out/wall-8x8.dds written|1 file(s) extracted.", "wall-8x8.dds"},
        {"DXT5", "wall-4x4.dds", "x3!",
         "out/wall-8x8.dds written|out/wall-4x4.dds not overwritten.|out/wall-2x2.dds written|2 file(s) extracted.",
         "wall-2x2.dds wall-4x4.dds wall-8x8.dds"},
        {"DXT1", "", "n!", "out/wall-8x8.bmp written|1 file(s) extracted.", "wall-8x8.bmp"},
        {"DXT5", "", "n3!", "out/wall-1x1.tga written|1 file(s) extracted.", "wall-1x1.tga"},
        {"DXT5", "wall-8x8.tga", "n!", "out/wall-8x8.tga not overwritten.|0 file(s) extracted.",
         "wall-8x8.tga"},
        {"DXT5", "wall-8x8.tga", "no!", "out/wall-8x8.tga overwritten.|1 file(s) extracted.", "wall-8x8.tga"},
        {"DXT1", "", "nN!", "No mipmap selected.|0 file(s) extracted.", ""},
        {"DXT1", "", "x!n!", "out/wall-8x8.bmp written|1 file(s) extracted.",
         "wall-1x1.dds wall-2x2.dds wall-4x4.dds wall-8x8.bmp wall-8x8.dds"},
    };
    for (const auto& [type, before, clicks, summary, after] : cases) {
        std::filesystem::remove_all(folder.file("out"));
        std::filesystem::create_directory(folder.file("out"));
        if (*before != '\0') (void)folder.write("out/" + std::string{before}, std::string(10000, 'x'));
        open({CddsType::TypeCdds, {chainOf("wall.bmp", type, 8, 8)}});
        EXPECT_EQ(extract(clicks), summary) << clicks;
        EXPECT_EQ(files(), after) << clicks;
        const bool kept = std::string_view{summary}.find("not overwritten") != std::string::npos;
        if (*before != '\0') {
            EXPECT_EQ(folder.read("out/" + std::string{before}) == std::string(10000, 'x'), kept) << clicks;
        }
    }
}

TEST_F(Extraction, HandsTheFileToTheEditor) {
    open({CddsType::TypeCdds, {chainOf("a b.bmp", "DXT1", 8, 8)}});
    const auto launch = [&](const std::string& clicks) {
        associations.opened.clear();
        const std::string summary = extract("l" + clicks);
        std::string opened;
        for (const std::string& path : associations.opened)
            opened += path.substr(folder.path().size() + 5) + ";";
        EXPECT_FALSE(fileExists(associations.probe)) << associations.probe;
        return row(opened, summary);
    };
    EXPECT_EQ(launch("!"), ", out/a b-8x8.dds written|1 file(s) extracted.|No executable found for dds");
    EXPECT_EQ(launch("n!"), ", out/a b-8x8.bmp written|1 file(s) extracted.|No executable found for bmp");
    EXPECT_EQ(launch("N!"), ", 0 file(s) extracted.|No executable found for ");
    associations.executable = "/bin/true";
    EXPECT_EQ(launch("xN12!"),
              "a b-8x8.dds;, out/a b-4x4.dds written|out/a b-2x2.dds written|2 file(s) extracted.");
    EXPECT_EQ(launch("2!"), "a b-2x2.dds;, out/a b-2x2.dds not overwritten.|0 file(s) extracted.");
    EXPECT_EQ(launch("on1!"), "a b-4x4.bmp;, out/a b-4x4.bmp written|1 file(s) extracted.");
    EXPECT_EQ(launch("N!"), ", 0 file(s) extracted.|No executable found for ");
    std::filesystem::remove(folder.file("out/a b-8x8.dds"));
    EXPECT_EQ(launch("xN1!"), "a b-4x4.dds;, out/a b-4x4.dds not overwritten.|0 file(s) extracted.");
    EXPECT_EQ(launch("xN!"), ", 0 file(s) extracted.|No executable found for ");
    associations.broken = true;
    for (const char* kind : {"d", "n"}) {
        const Connection summary = dialog.ExtractSummary.change.connect([&] { boxes.expect(nullptr); });
        EXPECT_EQ(launch(std::string{kind} + "No3!").find("a b-1x1"), std::size_t{6});
        boxes.expect("ImageSave Error : 70 Permission denied (broken)");
    }
    EXPECT_EQ(associations.probe.rfind(std::filesystem::temp_directory_path().string() + "/~", 0), 0U);
}

TEST_F(Extraction, AFailureIsToldAndLeavesNothingHalfWritten) {
    const std::tuple<const char*, const char*, std::function<void()>, const char*, const char*, const char*>
        cases[] = {
            {"../up.bmp", "!", [] {}, "Error : 52 ", "0 file(s) extracted.", ""},
            {"a\\b.bmp", "n!", [] {}, "Error : 52 ", "", ""},
            {"..bmp", "x!", [] {}, "Error : 52 ", "0 file(s) extracted.", ""},
            {"b\x07.bmp", "e!", [] {}, "Error : 52 ", "0 file(s) extracted.", ""},
            {"\x81.bmp", "!", [] {}, "Error : 52 ", "0 file(s) extracted.", ""},
            {"w.bmp", "!o!",
             [this] {
                 std::filesystem::permissions(folder.write("out/w-8x8.dds", "old"),
                                              std::filesystem::perms::owner_read);
             },
             "Error : 70 ", "0 file(s) extracted.", "w-8x8.dds"},
            {"w.bmp", "x!", [this] { std::filesystem::create_directory(folder.file("out/w-4x4.dds")); },
             "ImageSave Error : 75 ", "out/w-8x8.dds written|1 file(s) extracted.", "w-4x4.dds w-8x8.dds"},
            {"w.bmp", "n!", [this] { std::filesystem::create_directory(folder.file("out/w-8x8.bmp")); },
             "Error", "0 file(s) extracted.", "w-8x8.bmp"},
            {"w.bmp", "!", [this] { std::filesystem::remove_all(folder.file("out")); }, "Error : 76 ",
             "0 file(s) extracted.", nullptr},
            {"w.bmp", "e!", [this] { std::filesystem::remove(session.archivePath); }, "Error : 53 ",
             "0 file(s) extracted.", ""},
            {"w.bmp", "n!", [this] { std::filesystem::remove(session.archivePath); }, "Error : 53 ", "", ""},
            {"w.bmp", "e!", [this] { std::filesystem::resize_file(session.archivePath, 100); }, "Error : 75 ",
             "0 file(s) extracted.", ""},
            {"w.bmp", "x!", [this] { replaceByATwin(); }, "ImageSave Error : 75 another file has taken",
             "0 file(s) extracted.", ""},
            {"w.bmp", "n!", [this] { session.archivePath = folder.write("other", "DDS "); },
             "ImageSave Error : 75 ", "", ""},
        };
    for (const auto& [name, clicks, spoil, words, summary, after] : cases) {
        std::filesystem::remove_all(folder.file("out"));
        std::filesystem::create_directory(folder.file("out"));
        open({CddsType::TypeCdds, {chainOf(name, "DXT1", 8, 8)}});
        spoil();
        EXPECT_EQ(extract(clicks), summary) << name << clicks;
        boxes.expect(words);
        if (after != nullptr) {
            EXPECT_EQ(files(), after) << name << clicks;
        }
    }
}

} // namespace
} // namespace pelrath::test
