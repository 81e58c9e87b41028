#include "main_harness.hpp"

namespace pelrath::test {
namespace {

// Rows of the three panes and the list of names, and textures at hand.
std::string countsOf(const MainHarness& harness) {
    const auto& [textures, levels, header] = harness.main.Output;
    return row(textures.count(), levels.count(), header.count(), harness.main.incrementalSearchList.count(),
               harness.session.archive.textures.size());
}

struct Reading : testing::Test, MainHarness {
    Reading() { start(); }
    [[nodiscard]] std::string counts() const { return countsOf(*this); }
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
                  cdds ? "76, 254, 112" : "51, 158, 112"); // the titles
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

TEST_F(Reading, ItsLinesCanBeTakenAsText) {
    // The layout, the pane, its lines' cells, and what else can be copied of them.
    const char* textures = "Index\tFile Name\tWidth\tHeight\tType\tNbMMap\t";
    const char* levels = "Index\tSize\tWidth\tHeight\tAdrDec\tAdrHex\tOffsetDec\tOffsetHex\tTrgDec\tTrgHex\n";
    for (const CddsType type : {CddsType::Type0C, CddsType::TypeCdds}) {
        const bool cdds = type == CddsType::TypeCdds;
        open({type,
              {{"first", "DXT1", {{4, 4, "12345678"}}},
               {" a\tb c.bmp", "D 1", {{1000000, 2, "12345678"}, {2, 2, "abcdefgh"}}}}});
        choose(1);
        const auto copy = [this](Pane pane, PaneCopy what) { return main.copies().text(pane, what); };
        const std::string line = copy(TexturePane, PaneCopy::Lines);
        EXPECT_EQ(line.substr(0, line.find("NbMMap") + 7), textures);
        EXPECT_NE(line.find("\n2\ta\uFFFDb c.bmp\t1000000\t2\tD 1\t2\t"), std::string::npos) << line;
        EXPECT_EQ(std::count(line.begin(), line.end(), '\t'), cdds ? 44 : 26);
        EXPECT_EQ(copy(TexturePane, PaneCopy::Names), " a\uFFFDb c.bmp");
        const std::string offset = copy(TexturePane, PaneCopy::Offsets);
        EXPECT_NE(line.find("\t" + std::to_string(std::stoi(offset, nullptr, 16)) + "\t" + offset),
                  std::string::npos);
        main.Output[MipmapPane].choose({{0, 0}, {2, 2}});
        const std::string chosen = copy(MipmapPane, PaneCopy::Lines);
        EXPECT_EQ(chosen.substr(0, chosen.find('\n') + 1), levels);
        EXPECT_NE(chosen.find("\n3\t8\t2\t2\t"), std::string::npos) << chosen;
        EXPECT_EQ(copy(MipmapPane, PaneCopy::Names), "first\n a\uFFFDb c.bmp");
        const auto position = static_cast<std::size_t>(session.archive.textures[1].mipmaps[1].dataOffset);
        std::ostringstream hex;
        hex << std::hex << std::uppercase << position;
        EXPECT_TRUE(copy(MipmapPane, PaneCopy::Offsets).ends_with("\n" + hex.str()));
        EXPECT_EQ(copy(HeaderPane, PaneCopy::Lines), "");
        main.Output[HeaderPane].setSelected(0, true);
        EXPECT_EQ(copy(HeaderPane, PaneCopy::Offsets), "");
        EXPECT_TRUE(
            copy(HeaderPane, PaneCopy::Lines).starts_with(cdds ? "Long1\tLong2\t" : "FileNb\tLong1\t"));
    }
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
    boxes.expect({"No CDDS file selected. Please try again.", notFound});
    EXPECT_FALSE(main.SplashFrame.visible());

    open(archiveOf({"a.bmp", "b.bmp"}));
    const CddsArchive before = session.archive;
    folder.remove("a.cdds");
    main.cmdReadCDDS.press();
    boxes.expect({"Selected file was not found. Please try again.", notFound});
    (void)folder.write("a.cdds", "CDDS and something else");
    main.cmdReadCDDS.press();
    EXPECT_EQ(session.archive, before);
    EXPECT_EQ(counts(), "2, 2, 1, 2, 2");
    EXPECT_TRUE(main.dynImage.visible() && main.Command1.enabled());

    // What is no archive leaves the catalogue, and is not taken for what that describes.
    const std::string shown = folder.read("tmp.dds");
    choose(1);
    boxes.expect("since it was read. Please read it again.");
    EXPECT_EQ(row(main.Label11.caption(), surface.record.loaded.size(), folder.read("tmp.dds") == shown),
              "Texture not available !, 1, true");
    fileOpen.answer = folder.write("other", "cddS" + std::string(4096, '\0'));
    main.Command1.press();
    EXPECT_EQ(session.archive, before);
    main.Text8.setText(folder.path());
    windows.answer = [&] { main.transfer.cmdExtractInsert.press(); };
    main.cmdExtract.press();
    boxes.expect(("other was chosen, but is not the archive that was read, which is " +
                  folder.file("a.cdds") + ". Please choose the archive and read it again")
                     .c_str());
    EXPECT_FALSE(has("b-4x4.dds"));

    fileOpen.answer = folder.file("pipe"); // there, and not to be read
    folder.makePipe("pipe");
    main.Command1.press();
    EXPECT_EQ(boxes.take().at(0).title, "Pelrath - File not readable");
    EXPECT_EQ(counts(), "0, 0, 0, 0, 0");
}

TEST_F(Reading, WhereNoTextureIsLeftNothingOfTheLastOneStays) {
    ArchiveBuilder damaged = archiveOf({"a.bmp", "b.bmp"});
    damaged.patches[64] = 0x10000000; // the first texture's descriptor
    // What the archive has become when it is read again, what is listed then, and a word of the message.
    const std::tuple<ArchiveBuilder, const char*, const char*> cases[] = {
        {archiveOf({}), "0, 0, 1, 0, 0", nullptr}, {damaged, "0, 0, 0, 0, 0", "\"a.bmp\""}};
    for (auto [builder, listed, word] : cases) {
        MainHarness fresh;
        fresh.start();
        fresh.open(archiveOf({"a.bmp", "b.bmp"}));
        fresh.choose(1);
        fresh.type(U"b");
        (void)fresh.folder.write("a.cdds", builder.build());
        const auto nothingLeft = [&, expected = listed] {
            EXPECT_EQ(countsOf(fresh), expected);
            EXPECT_EQ(row(fresh.main.Text5.text(), fresh.main.incrementalSearchText.text(),
                          fresh.session.selectedTexture, fresh.session.selectedBaseName),
                      ", , -1, ");
            fresh.main.activate();
        };
        fresh.boxes.whileShown = nothingLeft; // before the message, and behind it
        fresh.main.cmdReadCDDS.press();
        fresh.boxes.expect(word);
        nothingLeft();
        EXPECT_TRUE(fresh.main.cmdReadCDDS.enabled());
        fresh.pump.steps = {[&] { fresh.main.queryUnload(); }};
        fresh.main.Timer1.tick.emit();
        EXPECT_EQ(fresh.surface.record.frames.back().quad, Quad{});
    }
}

TEST_F(Reading, EventsRunDuringItAndMayEndTheProgram) {
    std::vector<int> rows;
    bool ends = false;
    pump.whilePending = [&] {
        rows.push_back(main.Output[TexturePane].count());
        EXPECT_EQ(main.incrementalSearchList.count(), rows.back());
        EXPECT_TRUE(rows.back() == 0 || main.Text7.text() == std::to_string(rows.back()));
        EXPECT_FALSE(main.dynImage.visible());
        for (CommandButton* disabled : {&main.Command1, &main.cmdReadCDDS, &main.cmdGetExtractInsertFolder}) {
            disabled->press();
        }
        if (ends && rows.size() == 3) main.queryUnload();
    };
    open(archiveOf(std::vector<std::string>(35, "t.bmp")));
    EXPECT_EQ(std::exchange(rows, {}), (std::vector{0, 10, 20, 30}));
    EXPECT_EQ(row(folderPicker.shown, main.cmdGetExtractInsertFolder.enabled()), "0, true");
    ends = true;
    main.cmdReadCDDS.press();
    EXPECT_EQ(row(main.Output[TexturePane].count(), surface.record.alive, main.dynImage.visible()),
              "20, 0, false");
}

TEST_F(Reading, EndsWithTheFirstTextureWhateverTheUserDoesMeanwhile) {
    ArchiveBuilder builder = archiveOf({});
    for (int i = 0; i < 35; ++i) {
        const LevelPlan level{4, 4, "1234567" + std::to_string(i % 10)};
        builder.textures.push_back({"t" + std::to_string(i), "DXT1", {level, level}});
    }
    ListBox& names = main.incrementalSearchList;
    const std::pair<const char*, std::function<void()>> cases[] = {
        {"chooses the first", [&] { choose(0); }},
        {"chooses the last", [&] { choose(main.Output[TexturePane].count() - 1); }},
        {"chooses a name", [&] { names.setSelected(3, true); }},
        {"marks a level", [&] { main.Output[MipmapPane].setSelected(1, true); }},
        {"types a name", [&] { type(U"\bt2"); }},
        {"types what nothing begins with", [&] { choose(0), type(U"x"); }},
        {"steps", [&] { press(KeyCode::Down); }}};
    for (const auto& [what, act] : cases) {
        std::size_t loaded = 0;
        pump.whilePending = [&, act = act] { act(), loaded = surface.record.loaded.size(); };
        open(builder);
        EXPECT_EQ(row(session.selectedTexture, session.selectedBaseName, names.selectedRow(),
                      main.Output[TexturePane].selectedRow(), main.incrementalSearchText.text(),
                      folder.read("tmp.dds").substr(128)),
                  "0, t0, 0, 0, t0, 12345670")
            << what;
        EXPECT_EQ(main.Output[MipmapPane].selectedRuns(), (std::vector<ListBox::Run>{{0, 1}})) << what;
        EXPECT_EQ(surface.record.loaded.size(), loaded + 1) << what;
    }
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

    folder.remove("tmp.dds"), folder.makeFolder("tmp.dds");
    choose(1);
    boxes.expect("has no data");
    const TemporaryFilesIn own{folder.file("own")};
    choose(0); // staged elsewhere
    EXPECT_EQ(row(main.Label11.visible(), surface.record.loaded.size()), "false, 3");
}

} // namespace
} // namespace pelrath::test
