#include "insertion_harness.hpp"

namespace pelrath::test { namespace {

using Names = std::vector<std::string>;
using Boxes = std::vector<ShownBox>;

constexpr int losses = 8;     // of one compression, in a channel
constexpr int softened = 100; // of the two colours where they meet in a smaller level
constexpr auto cdds = CddsType::TypeCdds;

std::string bitmapOf(int side, const std::string& pixels) {
    const std::string sides = " d" + std::to_string(side) + " d" + std::to_string(side);
    return "BM" + bytesOf("d0 d0 d54 d40" + sides + " w1 w24 d0 d0 d0 d0 d0 d0 " + pixels);
}

/// Archives that differ in where the second texture's levels are: behind one another, with gaps and out of order, in front of the tables, and
/// shared with another texture.
std::vector<ArchiveBuilder> arrangements() {
    std::vector<ArchiveBuilder> all;
    for (const CddsType type : {cdds, CddsType::Type0C}) {
        for (int kind = 0; kind < 4; ++kind) {
            ArchiveBuilder& builder = all.emplace_back(type);
            builder.textures = {chainOf("other.bmp", "DXT1", 8, 8, blue, yellow), chainOf("wall.tga", "DXT5", 12, 6),
                                chainOf("last.bmp", "DXT1", 4, 4)};
            auto& levels = builder.textures[1].levels;
            std::int32_t at = 4000;
            for (LevelPlan& level : levels) { level.at = kind == 1 ? std::optional{at -= 300} : std::nullopt; }
            builder.dataBeforeTables = kind == 2;
            if (kind != 3) continue;
            levels[0].at = 2000;
            builder.textures.push_back({"shared.tga", "DXT5", {levels[0]}});
        }
    }
    return all;
}

TEST(Insertion, PutsBackWhatWasExtractedByteForByte) {
    for (const ArchiveBuilder& builder : arrangements()) {
        for (const MipmapOperation operation : {Embedded, External, Single}) {
            InsertionHarness h{builder};
            h.choose(1);
            const std::string before = h.archive();
            const auto& levels = h.chosen().mipmaps;
            std::string lines;
            for (std::size_t i = 0; i < (operation == External ? levels.size() : 1); ++i) {
                h.extract(DdsFileType, operation == Embedded ? Embedded : Single, static_cast<int>(i));
                lines += h.images.file("wall-" + std::to_string(levels[i].width) + "x" + std::to_string(levels[i].height) + ".dds inserted.\r\n");
            }
            // Other data in the levels' places, so that what is put back can be seen.
            const std::string blank = h.outside(before, operation == Single ? std::optional<std::size_t>{0} : std::nullopt);
            ASSERT_NE(h.folder.write("a.cdds", blank), "");
            const std::string count = operation == Single ? "1 mipmap(s)" : operation == External ? "4 mipmap(s)" : "4 Mipmap(s)";
            EXPECT_EQ(h.insert(DdsFileType, operation), h.copyLine(0) + lines + count + " inserted.\r\n");
            EXPECT_TRUE(h.archive() == before && h.copies.read("a-0.cdds") == blank && h.catalogue() == h.session.archive) << operation;
        }
    }
}

TEST(Insertion, TakesEveryLevelBackFromItsImage) {
    const std::tuple<const char*, const char*, int, int> cases[] = {
        {"DXT1", "bmp", 16, 8}, {"DXT5", "tga", 12, 6}, {"DXT5", "tga", 7, 13}, {"DXT1", "bmp", 1, 6}};
    for (const auto& [type, extension, width, height] : cases) {
        InsertionHarness h{{cdds, {chainOf("wall", type, width, height), chainOf("next", type, 4, 4, blue, yellow)}}};
        const std::string before = h.archive();
        for (std::size_t i = 0; i < h.chosen().mipmaps.size(); ++i) {
            h.extract(NativeFileType, Single, static_cast<int>(i));
            ASSERT_NE(h.folder.write("a.cdds", h.outside(before, i)), "");
            const std::string name = h.images.names()[0];
            EXPECT_EQ(h.insertLevels(NativeFileType, Single, {static_cast<int>(i)}), h.noCopy() + h.images.file(name) + "\r\n1 mipmaps(s) inserted.");
            EXPECT_TRUE(name.ends_with(extension) && h.outside(h.archive(), i) == h.outside(before, i)) << name;
            EXPECT_LE(h.difference(before, h.archive(), i), losses) << type << name;
            EXPECT_EQ(h.images.names(), Names{name});
            std::filesystem::remove(h.images.file(name));
        }
        EXPECT_EQ(h.program.names(), Names{"tmp1.dds"});
    }
}

TEST(Insertion, CreatesTheChainWithEachFilter) {
    for (const FileTypeOption kind : {NativeFileType, DdsFileType}) {
        for (const char* type : {"DXT1", "DXT5"}) {
            InsertionHarness h{{CddsType::Type0C, {chainOf("wall", type, 16, 24), chainOf("next", type, 4, 4, blue, yellow)}}};
            const std::string before = h.archive();
            h.extract(kind);
            const Names source = h.images.names(), programs = h.program.names();
            for (int filter = 0; filter < 9; ++filter) {
                ASSERT_NE(h.folder.write("a.cdds", h.outside(before)), "");
                const std::string summary = h.insert(kind, Create, [&] { h.dialog.lstScaleFilter.select(filter); });
                // From DDS files, the summary starts anew with the image's part.
                EXPECT_EQ(summary, (kind == DdsFileType ? "" : h.copyLine(filter)) + h.images.file(source[0]) + "\r\n5 mipmaps(s) inserted.");
                EXPECT_TRUE(h.outside(h.archive()) == h.outside(before));
                // The two halves of a level stay apart only where each pixel lies in one of the level below.
                const bool sharp = filter == 0 || filter == 2 || filter == 3;
                for (std::size_t i = 0; i < 3; ++i) {
                    EXPECT_LE(h.difference(before, h.archive(), i), sharp || i == 0 ? losses : softened) << type << ' ' << filter << ' ' << i;
                }
                EXPECT_EQ(h.levelOf(h.archive(), 4).find("####"), std::string::npos);
                EXPECT_TRUE(h.images.names() == source && h.program.names() == programs);
            }
        }
    }
}

/// Insertions that do not go as they should, into one texture of three levels of 8 bytes.
class TroubledInsertion : public ::testing::Test {
protected:
    std::string put(const std::string& name, const std::string& bytes) { return h.images.write(name, bytes); }
    void expectBox(const std::string& text, const std::string& title, BoxIcon icon = BoxIcon::Critical) {
        EXPECT_EQ(h.boxes.take(), (Boxes{{text, title, icon, BoxButtons::Ok}}));
    }

    InsertionHarness h{{cdds, {chainOf("wall.xyz", "DXT1", 4, 4)}}};
    const std::string before = h.archive(), noCopy = h.noCopy(), chain = std::string(128, 'h') + "xxxxxxxxyyyyyyyyzzzzzzzz";
    const std::string level0 = h.images.file("wall-4x4.dds"), level1 = h.images.file("wall-2x2.dds"), level2 = h.images.file("wall-1x1.dds");
    const std::string bitmap = h.images.file("wall-4x4.bmp");
};

TEST_F(TroubledInsertion, SaysWhatIsMissingOrTooShortAndWritesNoneOfIt) {
    EXPECT_EQ(h.insertLevels(DdsFileType, Embedded, {}), noCopy + level0 + " not found.\r\n");
    EXPECT_EQ(h.insertLevels(DdsFileType, External, {}), noCopy + "0 mipmap(s) inserted.\r\n");
    put("wall-4x4.dds", chain.substr(1));
    EXPECT_EQ(h.insertLevels(DdsFileType, Embedded, {}), noCopy + level0 + " is too short.\r\n0 Mipmap(s) inserted.\r\n");
    put("wall-2x2.dds", chain.substr(0, 135));
    const std::string missing = level2 + " not found.\r\n0 mipmap(s) inserted.\r\n";
    EXPECT_EQ(h.insertLevels(DdsFileType, External, {0, 1, 2}), noCopy + level1 + " is too short.\r\n" + missing);
    EXPECT_EQ(h.insertLevels(NativeFileType, Single, {}), "No mipmap selected.\r\n0 mipmaps(s) inserted.");
    EXPECT_TRUE(h.archive() == before);

    std::filesystem::remove(level0);
    put("wall-1x1.dds", chain);
    const std::string one = level2 + " inserted.\r\n1 mipmap(s) inserted.\r\n";
    EXPECT_EQ(h.insertLevels(DdsFileType, External, {0, 2}), noCopy + level0 + " not found.\r\n" + one);
    EXPECT_TRUE(h.levelOf(h.archive(), 2) == "xxxxxxxx" && h.outside(h.archive(), 2) == h.outside(before, 2));
}

TEST_F(TroubledInsertion, TakesFromAnImageOfAnotherSizeWhatLiesInTheLevelsPlaces) {
    EXPECT_EQ(h.insertLevels(NativeFileType, Create, {}), noCopy + bitmap + "\r\n0 mipmaps(s) inserted.");
    const Boxes shown = h.boxes.take();
    ASSERT_EQ(shown.size(), 2U);
    EXPECT_EQ(shown[1], (ShownBox{"LoadImage " + bitmap + " error", "SimpleImageInsertion", BoxIcon::Critical, BoxButtons::Ok}));
    // One texel: its level 0 is as long as one of 4 x 4, and its chain ends there.
    put("wall-4x4.bmp", bitmapOf(1, "00FF0000"));
    EXPECT_EQ(h.insertLevels(NativeFileType, Create, {}), noCopy + bitmap + "\r\n" + bitmap + " is too short.\r\n0 mipmaps(s) inserted.");
    expectBox("Error during insertion in CDDS.", "performSimpleImageInsertion");
    EXPECT_TRUE(h.archive() == before);
    EXPECT_EQ(h.images.names(), Names{"wall-4x4.bmp"});
    std::filesystem::create_directory(h.images.file("wall-4x4_tmppelrath.dds")); // in the built file's place
    EXPECT_EQ(h.insertLevels(NativeFileType, Create, {}), noCopy + bitmap + "\r\n0 mipmaps(s) inserted.");
    h.boxes.expect("Insertion Error : 75 Path/File access error");
    std::filesystem::remove(h.images.file("wall-4x4_tmppelrath.dds"));
    h.insert(NativeFileType, Create, [&] { h.dialog.lstScaleFilter.select(0); }); // scales each level by itself
    EXPECT_TRUE(h.levelOf(h.archive(), 0) != h.levelOf(before, 0) && h.levelOf(h.archive(), 2) != h.levelOf(before, 2));
    put("wall-1x1.bmp", bitmapOf(8, "192*FF"));
    h.insertLevels(NativeFileType, Single, {2});
    EXPECT_EQ(h.levelOf(h.archive(), 2).substr(0, 2), bytesOf("FFFF"));
}

TEST_F(TroubledInsertion, RefusesAnArchiveThatIsNotTheOneRead) {
    put("wall-4x4.dds", chain);
    put("wall-4x4.bmp", bitmapOf(4, "48*00"));
    std::string otherSides = before;
    otherSides[32 + 64 + 40 + 12] = 8;
    const std::string path = h.session.archivePath;
    const std::function<void()> changes[] = {
        [&] { h.session.archivePath = h.folder.write("b.cdds", before); },
        [&] { (void)(h.session.archivePath = path, h.folder.write("a.cdds", before + "more")); },
        [&] { (void)h.folder.write("a.cdds", otherSides); },
        [&] { (void)h.folder.write("a.cdds", "short"); },
        [&] { std::filesystem::remove(path); },
        [&] { std::filesystem::create_directory(path); },
    };
    for (const auto& change : changes) {
        change();
        const std::string changed = fileExists(path) ? h.archive() : "";
        for (const FileTypeOption kind : {DdsFileType, NativeFileType}) {
            EXPECT_EQ(h.insert(kind, kind == DdsFileType ? Embedded : Create), "Insertion canceled.");
            expectBox(h.session.archivePath + " is no longer the file that was read: it has been changed, replaced or removed.\r\n\r\n"
                                              "Please read it again before you insert.",
                      "Pelrath - Insertion refused", BoxIcon::Exclamation);
        }
        EXPECT_TRUE(!fileExists(path) || h.archive() == changed);
        EXPECT_EQ(h.copies.names(), Names{});
    }
}

TEST_F(TroubledInsertion, LooksAtTheArchiveAgainBeforeItWrites) {
    put("wall-4x4.dds", chain);
    h.sign.atTheEnd = [&] { std::filesystem::rename(h.folder.write("b.cdds", before + "more"), h.session.archivePath); };
    EXPECT_EQ(h.insert(DdsFileType, Embedded), h.copyLine(0) + "0 Mipmap(s) inserted.\r\n");
    h.boxes.expect("no longer the file that was read");
    EXPECT_TRUE(h.archive() == before + "more");
}

TEST(Insertion, NeverWritesOverTheTables) {
    for (const CddsType type : {cdds, CddsType::Type0C}) {
        ArchiveBuilder builder{type, {chainOf("wall", "DXT1", 4, 4)}};
        builder.build();
        const std::int32_t table = builder.tableAt[0] + (type == cdds ? 40 : 0);
        for (const std::int32_t at : {0, builder.entryAt(0) + 60, builder.tableAt[0] + 20, table + 47}) {
            builder.patches[table + 16] = at - (table + 16); // where the second level says its data is
            InsertionHarness h{builder};
            const std::string before = h.archive();
            ASSERT_NE(h.images.write("wall-4x4.dds", std::string(128 + 24, 'x')), "");
            EXPECT_EQ(h.insertLevels(DdsFileType, Embedded, {}), h.noCopy() + "0 Mipmap(s) inserted.\r\n");
            h.boxes.expect("would overwrite its tables");
            EXPECT_TRUE(h.archive() == before) << at;
        }
    }
}

TEST_F(TroubledInsertion, CountsTheLevelsThatTheArchiveReallyGot) {
    put("wall-4x4.dds", chain);
    put("wall-2x2.dds", chain);
    put("wall-1x1.dds", chain);
    const std::string path = h.session.archivePath;
    std::filesystem::permissions(path, std::filesystem::perms{0401});
    const std::string writable = "CDDS Attributes changed to Read Write\r\n", readOnly = "CDDS Attributes changed to Read Only\r\n";
    for (const MipmapOperation operation : {Embedded, External}) {
        const FullDisk full{before.size() - 4}; // the third level's write breaks off in its middle
        const std::string lines = operation == Embedded ? "2 Mipmap(s)" : level0 + " inserted.\r\n" + level1 + " inserted.\r\n2 mipmap(s)";
        EXPECT_EQ(h.insertLevels(DdsFileType, operation, {0, 1, 2}), noCopy + writable + lines + " inserted.\r\n" + readOnly);
        const std::string question = path + " is Read Only.\r\n\r\n- Select Ok to make it writable and perform the insertion,\r\n"
                                            "- Select Cancel to abort the insertion.";
        EXPECT_EQ(h.boxes.take(), (Boxes{{question, "CDDS is read only", BoxIcon::Question, BoxButtons::OkCancel},
                                         {"Insertion Error : 6 Overflow (" + path + ")", "Pelrath", BoxIcon::Critical, BoxButtons::Ok}}));
        EXPECT_EQ(h.levelOf(h.archive(), 0) + h.levelOf(h.archive(), 1), operation == Embedded ? "xxxxxxxxyyyyyyyy" : "xxxxxxxxxxxxxxxx");
        EXPECT_TRUE(h.levelOf(h.archive(), 2) == h.levelOf(before, 2)) << "a level is wholly old or wholly new";
        EXPECT_EQ(std::filesystem::status(path).permissions(), std::filesystem::perms{0401});
    }
    h.boxes.answer = BoxAnswer::Cancel;
    EXPECT_EQ(h.insertLevels(DdsFileType, Embedded, {}), noCopy);
    EXPECT_EQ(h.insertLevels(NativeFileType, Create, {}), noCopy + "0 mipmaps(s) inserted.");
    EXPECT_EQ(h.boxes.take().size(), 2U);
}

std::uint32_t leftCode; // by the next library call that fails

TEST(Insertion, EndsInOrderWhereTheLibraryFails) {
    LibraryFunctions library = imageLibrary();
    library.ilGetError = [] { return std::exchange(leftCode, 0U); };
    LibraryFunctions copying = library, saving = library, deleting = library;
    copying.ilCopyImage = [](std::uint32_t) -> std::uint8_t { return leftCode = 0x0505, 0; };
    saving.ilSaveImage = [](const char*) -> std::uint8_t { return leftCode = 0x0505, 0; };
    deleting.ilDeleteImages = [](std::size_t, const std::uint32_t*) { leftCode = 0x0505; };
    // The library, how the message begins, the filter, and how many levels the archive has got by then.
    const std::tuple<LibraryFunctions, const char*, int, int> cases[] = {
        {copying, "Insertion", 5, 0}, {saving, "ilSave", 5, 0}, {deleting, "Insertion", 5, 0}, {deleting, "Insertion", bilinearFilter, 3}};
    for (const auto& [functions, start, filter, count] : cases) {
        InsertionHarness h{functions};
        h.open({cdds, {chainOf("wall", "DXT1", 4, 4)}});
        const std::string before = h.archive(), image = h.images.write("wall-4x4.bmp", bitmapOf(4, "48*F8"));
        std::filesystem::permissions(h.session.archivePath, std::filesystem::perms::owner_read);
        const std::string summary = h.insert(NativeFileType, Create, [&] { h.dialog.lstScaleFilter.select(filter); });
        EXPECT_EQ(summary, h.copyLine(0) + "CDDS Attributes changed to Read Write\r\n" + image + "\r\nCDDS Attributes changed to Read Only\r\n" +
                               std::to_string(count) + " mipmaps(s) inserted.");
        const Boxes shown = h.boxes.take(); // behind the question
        ASSERT_EQ(shown.size(), 2U);
        EXPECT_EQ(shown[1].text, std::string{start} + " Error Number: 1285 -> IL_INVALID_VALUE ");
        EXPECT_TRUE((h.archive() == before) == (count == 0));
        EXPECT_TRUE(h.images.names() == Names{"wall-4x4.bmp"} && h.program.names().empty());
        leftCode = 0;
    }
}

std::string vanishing; // with the library's next save

TEST(Insertion, TellsOnceThatTheArchiveHasVanished) {
    LibraryFunctions library = imageLibrary();
    library.ilSaveImage = [](const char* name) { return std::filesystem::remove(vanishing), imageLibrary().ilSaveImage(name); };
    InsertionHarness h{library};
    for (const bool readOnly : {true, false}) {
        h.open({cdds, {chainOf("wall", "DXT1", 4, 4)}});
        vanishing = h.session.archivePath;
        if (readOnly) std::filesystem::permissions(vanishing, std::filesystem::perms::owner_read);
        ASSERT_NE(h.images.write("wall-4x4.bmp", bitmapOf(4, "48*F8")), "");
        EXPECT_TRUE(h.insertLevels(NativeFileType, Create, {}).ends_with("wall-4x4.bmp\r\n0 mipmaps(s) inserted."));
        const Boxes shown = h.boxes.take();
        ASSERT_EQ(shown.size(), readOnly ? 3U : 1U);
        EXPECT_EQ(shown[readOnly ? 1 : 0].title, "Pelrath - Insertion refused");
        if (readOnly) { EXPECT_EQ(shown[2].text, "CDDS Attributes Error : 53 File not found (" + vanishing + ")"); }
    }
}

TEST_F(TroubledInsertion, TellsWhereTheSafeCopyIsWhenCreatingFromDdsFails) {
    EXPECT_EQ(h.insert(DdsFileType, Create), h.copyLine(0) + level0 + "\r\n0 mipmaps(s) inserted.");
    EXPECT_EQ(h.boxes.take().size(), 2U);
}

TEST_F(TroubledInsertion, MakesItsSafeCopyUnderTheNextNumberThatNothingHas) {
    put("wall-4x4.dds", chain);
    ASSERT_NE(h.copies.write("a-0.cdds", "earlier"), "");
    std::filesystem::create_symlink("nowhere", h.copies.file("a-1.cdds"));
    std::filesystem::create_directory(h.copies.file("a-2.cdds"));
    EXPECT_TRUE(h.insert(DdsFileType, Embedded).starts_with(h.copyLine(3)));
    EXPECT_TRUE(h.copies.read("a-3.cdds") == before && h.copies.read("a-0.cdds") == "earlier");
    const std::string size = std::to_string(before.size());
    EXPECT_EQ(h.sign.seen, "Copying a.cdds 0, " + size + "; Copying a.cdds " + size + ", " + size + "; clear");
    EXPECT_TRUE(h.insert(DdsFileType, Embedded).starts_with(h.copyLine(4)));

    // A folder that has gone, and the user's answers when asked for another.
    h.session.settings.cddsBackupFolder = h.copies.file("gone");
    EXPECT_EQ(h.insert(DdsFileType, Embedded), noCopy + "CDDS Safe Copy folder undefined.\r\nInsertion canceled.");
    EXPECT_EQ(row(h.foldersAsked, h.dialog.txtCDDSBackupFolder.text(), h.dialog.chkSaveCdds.checked(), h.dialog.chkSaveCdds.enabled()),
              "1, Invalid CDDS Safe Copy Folder, false, true");
    h.chosenFolder = h.copies.path();
    EXPECT_TRUE(h.insert(DdsFileType, Embedded).starts_with(h.copyLine(5)));
    EXPECT_EQ(h.dialog.txtCDDSBackupFolder.text(), h.chosenFolder);
}

TEST_F(TroubledInsertion, InsertsNothingWithoutTheSafeCopyThatIsWanted) {
    put("wall-4x4.dds", chain);
    {
        const FullDisk full{before.size() - 4};
        EXPECT_EQ(h.insert(DdsFileType, Embedded), noCopy + "Insertion canceled.");
        h.boxes.expect("Safe Copy Error : 6 Overflow");
        EXPECT_EQ(h.copies.names(), Names{});
    }
    for (int i = 0; i <= 32767; ++i) { std::filesystem::create_hard_link(level0, h.copies.file("a-" + std::to_string(i) + ".cdds")); }
    EXPECT_EQ(h.insert(DdsFileType, Embedded), noCopy + "Insertion canceled.");
    h.boxes.expect("Safe Copy Error : 58 File already exists (all numbers up to 32767 are taken in ");
    EXPECT_TRUE(h.archive() == before);
}

class BazarTemp : public TroubledInsertion {
protected:
    std::string copyTo(bool archiveToo = false) {
        return h.insert(DdsFileType, Embedded, [&] {
            h.dialog.chkDestination[ToArchive].setChecked(archiveToo);
            h.dialog.chkSaveCdds.setChecked(false);
            h.dialog.chkDestination[ToBazarTemp].setChecked(true);
        });
    }
    const std::string destination = h.bazar.file("wall.xyz"), copied = noCopy + destination + " overwritten\r\n 1 file(s) copied.\r\n";
};

TEST_F(BazarTemp, GetsTheTextureUnderItsOwnName) {
    for (const auto& [type, start] : {std::pair{"DXT1", std::string{"BM"}}, std::pair{"DXT5", bytesOf("000002")}}) {
        h.open({cdds, {chainOf("wall.xyz", type, 4, 4)}});
        h.extract(DdsFileType, Embedded);
        const std::string whole = h.archive();
        EXPECT_EQ(copyTo(), copied);
        EXPECT_TRUE(h.bazar.read("wall.xyz").starts_with(start)) << type;
        ASSERT_NE(h.bazar.write("wall.xyz", "mine"), "");
        h.boxes.answer = BoxAnswer::Cancel;
        EXPECT_EQ(copyTo(true), noCopy + level0 + " inserted.\r\n3 Mipmap(s) inserted.\r\n" + destination);
        EXPECT_EQ(h.bazar.read("wall.xyz"), "mine");
        h.boxes.answer = BoxAnswer::Ok;
        EXPECT_EQ(copyTo(), copied);
        const ShownBox question{"File wall.xyz already exists in Bazar Temp folder. Overwrite it ?", "File exists", BoxIcon::None,
                                BoxButtons::OkCancel};
        EXPECT_EQ(h.boxes.take(), (Boxes{question, question}));
        EXPECT_TRUE(h.bazar.read("wall.xyz").starts_with(start) && h.archive() == whole) << type;
        std::filesystem::remove(destination);
    }
}

TEST_F(BazarTemp, GetsNothingWhereThereIsNothingToCopyOrNowhereToPutIt) {
    EXPECT_EQ(copyTo(), noCopy) << "no such file";
    put("wall-4x4.dds", "no picture");
    EXPECT_EQ(copyTo(), noCopy);
    const Boxes shown = h.boxes.take();
    ASSERT_EQ(shown.size(), 2U);
    EXPECT_EQ(shown[1], (ShownBox{"LoadImage " + level0 + " error", "StoreCopyInBazarTemp", BoxIcon::Critical, BoxButtons::Ok}));
    h.extract(DdsFileType, Embedded);
    h.session.archive.textures[0].name = "../wall";
    EXPECT_EQ(copyTo(), noCopy);
    expectBox("Store texture Copy Error : 52 Bad file name or number (../wall)", "Pelrath");
    EXPECT_EQ(h.bazar.names(), Names{});
}

}} // namespace pelrath::test
