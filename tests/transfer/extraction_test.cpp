#include "transfer/transfer_harness.hpp"

namespace pelrath::test {
namespace {

namespace fs = std::filesystem;

struct Extraction : testing::Test, TransferHarness {
    /// The summary's last line.
    static std::string extracted(int count) { return std::to_string(count) + " file(s) extracted."; }
    /// An archive of one texture of 8 x 8, and nothing extracted yet.
    void begin(const std::string& name, const std::string& type) {
        folder.remove("out"), folder.makeFolder("out");
        open({CddsType::TypeCdds, {chainOf(name, type, 8, 8)}});
    }
};

TEST_F(Extraction, WritesTheChosenFilesAndSaysSo) {
    const auto inAThirdState = [](TransferControls& controls) {
        controls.chkOverwriteExistingFiles.setValue(CheckValue::Grey);
    };
    const char* const allButOne =
        "out/w-8x8.dds written|out/w-4x4.dds not overwritten.|out/w-2x2.dds written|";
    // Type, file in the folder before, steps, what is said of the files and their number, files afterwards.
    const std::tuple<const char*, std::string, Steps, std::string, int, const char*> cases[] = {
        {"DXT1", "", {noLevel}, "", 0, ""},
        {"DXT1", "w-8x8.dds", {}, "out/w-8x8.dds not overwritten.|", 0, "w-8x8.dds"},
        {"DXT1", "w-8x8.dds", {overwriting}, "out/w-8x8.dds overwritten.|", 1, "w-8x8.dds"},
        {"DXT1", "w-8x8.dds", {inAThirdState}, "out/w-8x8.dds|", 1, "w-8x8.dds"},
        {"DXT5", "w-4x4.dds", {external, unmark(3)}, allButOne, 2, "w-2x2.dds w-4x4.dds w-8x8.dds"},
        {"DXT5", "", {images, mark(3)}, "out/w-1x1.tga written|", 1, "w-1x1.tga"},
        {"DXT1", "w-8x8.bmp", {images, overwriting}, "out/w-8x8.bmp overwritten.|", 1, "w-8x8.bmp"},
        {"DXT1", "", {images, noLevel}, "No mipmap selected.|", 0, ""},
        {"DXT1", "", {mark(3), run, images}, "out/w-8x8.bmp written|", 1, "w-1x1.dds w-8x8.bmp"},
    };
    const std::string old(10000, 'x');
    for (const auto& [type, before, steps, lines, count, after] : cases) {
        begin("w.bmp", type);
        if (!before.empty()) (void)folder.write("out/" + before, old);
        EXPECT_EQ(extract(steps), lines + extracted(count));
        EXPECT_EQ(files(), after) << lines;
        const bool kept = lines.find("not overwritten") != std::string::npos;
        EXPECT_TRUE(before.empty() || (folder.read("out/" + before) == old) == kept) << lines;
    }
}

TEST_F(Extraction, HandsTheFileToTheEditor) {
    begin("a b.bmp", "DXT1");
    const auto noLargest = [this](TransferControls&) { fs::remove(folder.file("out/a b-8x8.dds")); };
    const std::string two = "out/a b-4x4.dds written|out/a b-2x2.dds written|";
    // In this order: whether there is a program, the steps, what it opens, the summary's lines and count, and
    // what is said behind them.
    const std::tuple<bool, Steps, const char*, std::string, int, const char*> cases[] = {
        {false, {}, "", "out/a b-8x8.dds written|", 1, "|No executable found for dds"},
        {false, {images}, "", "out/a b-8x8.bmp written|", 1, "|No executable found for bmp"},
        {true, {noLevel}, "", "", 0, "|No executable found for "},
        {true, {external, unmark(0), unmark(3)}, "out/a b-8x8.dds", two, 2, ""},
        {true, {mark(2)}, "out/a b-2x2.dds", "out/a b-2x2.dds not overwritten.|", 0, ""},
        {true, {images, mark(1)}, "out/a b-4x4.bmp", "out/a b-4x4.bmp written|", 1, ""},
        {true, {images, mark(1)}, "", "out/a b-4x4.bmp not overwritten.|", 0, ""},
        {true,
         {external, noLevel, mark(1), noLargest},
         "out/a b-4x4.dds",
         "out/a b-4x4.dds not overwritten.|",
         0,
         ""},
    };
    for (const auto& [program, steps, opened, lines, count, behind] : cases) {
        associations = {};
        if (program) associations.executable = "/bin/true";
        EXPECT_EQ(extract({launching, all(steps)}), lines + extracted(count) + behind);
        EXPECT_EQ(associations.opened.empty() ? "" : associations.opened.at(0),
                  *opened == '\0' ? "" : folder.file(opened));
        EXPECT_FALSE(fileExists(associations.probe)) << associations.probe;
    }
    {
        const Connection told =
            dialog.ExtractSummary.change.connect([&] { folder.remove("out/a b-1x1.dds"); });
        EXPECT_TRUE(extract({launching, mark(3)}).ends_with("|No executable found for ")) << "it has gone";
    }
    associations.broken = true;
    for (const Step& kind : {Step{ddsFiles}, Step{images}}) {
        const Connection summary = dialog.ExtractSummary.change.connect([&] { boxes.expect(nullptr); });
        EXPECT_TRUE(extract({launching, kind, mark(3)}).ends_with("written|" + extracted(1)));
        boxes.expect("ImageSave Error : 70 Permission denied (broken)");
    }
    EXPECT_TRUE(associations.probe.starts_with(fs::temp_directory_path().string() + "/~"));
}

TEST_F(Extraction, AFailureIsToldAndLeavesNothingHalfWritten) {
    const std::string none = extracted(0);
    for (const char* name : {"../up.bmp", "a\\b.bmp", "b\x07.bmp", "\x81.bmp"}) {
        begin(name, "DXT1");
        for (const auto& [steps, summary] :
             {std::pair{Steps{}, none}, {{embedded}, none}, {{external}, none}, {{images}, ""}}) {
            EXPECT_EQ(extract(steps), summary) << name;
            boxes.expect("ImageSave Error : 52 ");
        }
        EXPECT_EQ(files(), "");
    }
    const auto folderInPlaceOf = [this](const char* name) { return [=, this] { folder.makeFolder(name); }; };
    const auto readOnlyFile = [this] {
        (void)folder.write("out/w-8x8.dds", "old");
        folder.permit("out/w-8x8.dds", 0400);
    };
    const auto noArchive = [this] { fs::remove(session.archivePath); };
    const std::string one = "out/w-8x8.dds written|" + extracted(1);
    // What is done before, the steps, the words of the message, the summary and the files.
    const std::tuple<std::function<void()>, Steps, const char*, std::string, const char*> cases[] = {
        {readOnlyFile, {overwriting}, "Error : 70 ", none, "w-8x8.dds"},
        {folderInPlaceOf("out/w-4x4.dds"), {external}, "ImageSave Error : 75 ", one, "w-4x4.dds w-8x8.dds"},
        {folderInPlaceOf("out/w-8x8.bmp"), {images}, "Error", none, "w-8x8.bmp"},
        {[this] { session.exportImportFolder += "/gone"; }, {}, "Error : 76 ", none, ""},
        {noArchive, {embedded}, "Error : 53 ", none, ""},
        {noArchive, {images}, "Error : 53 ", "", ""},
        {[this] { replaceByATwin(); }, {external}, "a.cdds has been replaced by another file", none, ""},
    };
    for (const auto& [spoil, steps, words, summary, after] : cases) {
        begin("w.bmp", "DXT1");
        session.exportImportFolder = folder.file("out");
        spoil();
        EXPECT_EQ(extract(steps), summary) << words;
        boxes.expect(words);
        EXPECT_EQ(files(), after) << words;
    }
}

TEST_F(Extraction, NamesADamagedTextureAndItsArchive) {
    open({CddsType::TypeCdds, {{"..bmp", "DXT1", {{8, 8, std::string(31, 'x')}}}}});
    EXPECT_EQ(extract({}), "out/.-8x8.dds written|1 file(s) extracted.");
    EXPECT_EQ(extract({images}), "0 file(s) extracted.");
    EXPECT_EQ(boxes.take().at(0).text,
              "ilLoadImage Error Number: 1298 -> IL_FILE_READ_ERROR \r\n\r\nThe texture \"..bmp\" in " +
                  session.archivePath + " ends too early; another copy of the archive may help.");
}

} // namespace
} // namespace pelrath::test
