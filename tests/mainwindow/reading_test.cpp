#include "main_harness.hpp"

#include <sys/stat.h>

namespace pelrath::test {
namespace {

struct Reading : testing::Test, MainHarness {
    Reading() { start(); }
    // Rows of the three panes and the list of names, and textures at hand.
    [[nodiscard]] std::string counts() const {
        const auto& [textures, levels, header] = main.Output;
        return row(textures.count(), levels.count(), header.count(), main.incrementalSearchList.count(),
                   session.archive.textures.size());
    }
};

constexpr const char* notFound = "Pelrath - File not found";

TEST_F(Reading, FillsThePanesAndChoosesTheFirstTexture) {
    for (const CddsType type : {CddsType::Type0C, CddsType::TypeCdds}) {
        const bool cdds = type == CddsType::TypeCdds;
        open({type,
              {{" wall.x.bmp", "DXT1", {{4, 4, "12345678"}, {2, 2, "abcdefgh"}}}, {"none", "DXT5", {}}}});
        EXPECT_EQ(counts(), "2, 2, 1, 2, 2");
        EXPECT_EQ(row(main.Text1.text(), main.Text3.text(), main.Text4.text()),
                  folder.file("a.cdds") + (cdds ? ", cdds,       2 " : ", 0C,       2 "));
        EXPECT_EQ(row(main.Text7.text(), main.Text5.text()), "2, "); // the last texture has no level
        EXPECT_EQ(row(main.Text9.text().size(), main.Text2[0].text().size(), main.Text2[1].text().size()),
                  cdds ? "76, 254, 112" : "51, 158, 112");
        EXPECT_EQ(row(main.incrementalSearchList.line(0), main.Output[MipmapPane].line(1).substr(0, 7)),
                  "wall.x.bmp,     2  ");
        EXPECT_EQ(row(session.selectedTexture, session.selectedBaseName, folder.read("tmp.dds").substr(128)),
                  "0,  wall.x, 12345678");
        EXPECT_EQ(row(main.SplashFrame.visible(), main.dynImage.visible()), "false, true");
    }
    const auto& asked = fileOpen.asked;
    EXPECT_EQ(row(asked.title, asked.filter, asked.folder),
              "Select .CDDS file to analyse, Cdds File (*.cdds), " + folder.path());
}

TEST_F(Reading, AnArchiveWithoutTexturesHoldsTitlesOnly) {
    open(archiveOf({"a.bmp"}));
    open(ArchiveBuilder{CddsType::TypeCdds});
    EXPECT_EQ(counts(), "0, 0, 1, 0, 0");
    EXPECT_EQ(row(main.Text7.text(), session.selectedTexture, session.selectedBaseName), "0, -1, ");
}

TEST_F(Reading, CancellingLeavesTheArchiveAndEmptiesTheDisplay) {
    open(archiveOf({"a.bmp", "b.bmp"}));
    fileOpen.answer.reset();
    main.Command1.press();
    EXPECT_EQ(counts(), "0, 0, 0, 0, 2");
    for (const TextBox* text :
         {&main.Text2[0], &main.Text3, &main.Text4, &main.Text5, &main.Text7, &main.Text9}) {
        EXPECT_EQ(text->text(), "");
    }
    EXPECT_EQ(row(main.Text1.text(), session.selectedBaseName), folder.file("a.cdds") + ", a");
    main.cmdReadCDDS.press();
    EXPECT_EQ(row(counts(), main.Text5.text()), "2, 2, 1, 2, 2,     2  ");
}

TEST_F(Reading, WhatCannotBeReadSaysSoAndKeepsWhatIsThere) {
    main.cmdReadCDDS.press();
    EXPECT_EQ(boxes.take(), std::vector{(ShownBox{"No CDDS file selected. Please try again.", notFound})});
    EXPECT_FALSE(main.SplashFrame.visible());

    open(archiveOf({"a.bmp", "b.bmp"}));
    const CddsArchive before = session.archive;
    std::filesystem::remove(folder.file("a.cdds"));
    main.cmdReadCDDS.press();
    EXPECT_EQ(boxes.take(),
              std::vector{(ShownBox{"Selected file was not found. Please try again.", notFound})});
    (void)folder.write("a.cdds", "DDS and something else");
    main.cmdReadCDDS.press();
    EXPECT_EQ(session.archive, before);
    EXPECT_EQ(counts(), "2, 2, 1, 2, 2");
    EXPECT_TRUE(main.dynImage.visible() && main.Command1.enabled());
    fileOpen.answer = folder.file("pipe"); // there, and not to be read
    ASSERT_EQ(mkfifo(fileOpen.answer->c_str(), 0600), 0);
    main.Command1.press();
    EXPECT_EQ(boxes.take().at(0).title, "Pelrath - File not readable");
    EXPECT_EQ(counts(), "0, 0, 0, 0, 0");
}

TEST_F(Reading, ADamagedArchiveIsRefusedAsAWhole) {
    ArchiveBuilder builder = archiveOf({"a.bmp", "b.bmp"});
    open(builder);
    builder.patches[64] = 0x10000000; // the first texture's descriptor
    open(builder);
    const ShownBox box = boxes.take().at(0);
    EXPECT_EQ(box, (ShownBox{box.text, "Pelrath - Invalid CDDS file"}));
    EXPECT_NE(box.text.find("\"a.bmp\""), std::string::npos);
    EXPECT_EQ(counts(), "0, 0, 0, 0, 0");
    EXPECT_EQ(row(session.selectedTexture, session.selectedBaseName), "-1, ");
    main.activate(); // nothing is chosen any more
    EXPECT_TRUE(main.cmdReadCDDS.enabled());
}

TEST_F(Reading, EventsRunDuringIt) {
    std::vector<int> rows;
    pump.whilePending = [&] {
        rows.push_back(main.Output[TexturePane].count());
        EXPECT_EQ(main.incrementalSearchList.count(), rows.back());
        EXPECT_EQ(main.Text7.text(), rows.back() == 0 ? "" : std::to_string(rows.back()));
        EXPECT_FALSE(main.dynImage.visible());
        main.Command1.press(); // disabled: nothing happens
        main.cmdReadCDDS.press();
        choose(rows.back() - 1);
    };
    open(archiveOf(std::vector<std::string>(35, "t.bmp")));
    EXPECT_EQ(rows, (std::vector{0, 10, 20, 30}));
    EXPECT_EQ(row(session.selectedTexture, main.incrementalSearchList.selectedRow()),
              "0, 0"); // the read ends by choosing the first
}

TEST_F(Reading, TheProgramMayEndDuringIt) {
    pump.whilePending = [&] {
        if (pump.pending == 3) main.queryUnload();
    };
    open(archiveOf(std::vector<std::string>(35, "t.bmp")));
    EXPECT_EQ(row(main.Output[TexturePane].count(), surface.record.alive, main.dynImage.visible()),
              "20, 0, false");
}

TEST_F(Reading, TexturesThatCannotBeStagedAreReported) {
    open({CddsType::TypeCdds,
          {{"good.bmp", "DXT1", {{4, 4, "12345678"}}},
           {"empty.bmp", "DXT1", {{4, 4, ""}}},
           {"none.bmp", "DXT5", {}},
           {"other", "ARGB", {{1, 1, "1234"}}}}});
    // The texture, what is seen, and the words of the message; null: none.
    const std::tuple<int, const char*, const char*> cases[] = {
        {1, "Texture not available !, true, 1", "has no data"},
        {2, "Texture not available !, true, 2", "no level 0"},
        {3, "Invalid DXT Format, true, 3", nullptr},
        {0, ", false, 0", nullptr}};
    for (const auto& [texture, status, words] : cases) {
        choose(texture);
        EXPECT_EQ(row(main.Label11.caption(), main.Label11.visible(), session.selectedTexture), status);
        boxes.expect(words);
    }
    EXPECT_EQ(surface.record.loaded.size(), 2U);

    std::filesystem::remove(folder.file("tmp.dds"));
    std::filesystem::create_directory(folder.file("tmp.dds"));
    choose(1);
    boxes.expect("has no data");
    const TemporaryFilesIn own{folder.file("own")};
    choose(0); // staged elsewhere
    EXPECT_EQ(row(main.Label11.visible(), surface.record.loaded.size()), "false, 3");
}

TEST_F(Reading, ChoosingMarksTheTexturesLevels) {
    const LevelPlan level{2, 2, "12345678"};
    open({CddsType::Type0C,
          {{"a", "DXT1", {level, level}}, {"b", "DXT1", {}}, {"c", "ARGB", {level, level, level}}}});
    using Runs = std::vector<ListBox::Run>;
    const auto marked = [this](int texture) {
        choose(texture);
        return main.Output[MipmapPane].selectedRuns();
    };
    EXPECT_EQ(marked(0), (Runs{{0, 1}}));
    EXPECT_EQ(marked(2), (Runs{{2, 4}}));
    main.chkGraphicDisplay.setChecked(false); // nothing is staged from here on
    std::filesystem::remove(folder.file("tmp.dds"));
    EXPECT_EQ(marked(1), Runs{});
    EXPECT_EQ(marked(0), (Runs{{0, 1}}));
    EXPECT_EQ(row(session.selectedBaseName, has("tmp.dds")), "a, false");
}

} // namespace
} // namespace pelrath::test
