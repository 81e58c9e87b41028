#include "insertion_harness.hpp"

#include "imaging/library_error.hpp"

namespace pelrath::test { namespace {

constexpr std::uint16_t yellow = 0xFFE0, blue = 0x001F;
constexpr int losses = 8; // of one compression, in a channel

std::vector<std::size_t> upTo(std::size_t count) {
    std::vector<std::size_t> all(count);
    for (std::size_t i = 0; i < count; ++i) { all[i] = i; }
    return all;
}

/// Archives that differ in where their levels are: behind one another, with gaps and out of order, in front of the tables, and shared by two
/// textures. The second texture is the one that is worked on.
std::vector<ArchiveBuilder> arrangements() {
    std::vector<ArchiveBuilder> all;
    for (const CddsType type : {CddsType::TypeCdds, CddsType::Type0C}) {
        for (int kind = 0; kind < 4; ++kind) {
            ArchiveBuilder& builder = all.emplace_back(type);
            builder.textures = {chainOf("other.bmp", "DXT1", 8, 8, blue, yellow), chainOf("wall.tga", "DXT5", 12, 6, yellow, blue, 77),
                                chainOf("last.bmp", "DXT1", 4, 4, yellow, blue)};
            auto& levels = builder.textures[1].levels;
            if (kind == 1) {
                std::int32_t at = 4000;
                for (LevelPlan& level : levels) { level.at = at -= 300; }
            }
            builder.dataBeforeTables = kind == 2;
            if (kind == 3) {
                levels[0].at = 2000;
                builder.textures.push_back({"shared.tga", "DXT5", {levels[0]}});
            }
        }
    }
    return all;
}

TEST(Insertion, PutsBackWhatWasExtractedByteForByte) {
    for (const ArchiveBuilder& builder : arrangements()) {
        for (const MipmapOperation operation : {Embedded, External, Single}) {
            InsertionHarness h;
            h.open(builder);
            h.choose(1);
            const std::string before = h.archive();
            h.extract(DdsFileType, operation, 0);
            const std::size_t count = operation == Single ? 1 : h.chosen().mipmaps.size();
            // Other data in the levels' places, so that what is put back can be seen.
            const std::string blank = h.outside(before, upTo(count));
            ASSERT_NE(h.folder.write("a.cdds", blank), "");
            const std::string summary = h.insert(DdsFileType, operation);
            EXPECT_TRUE(h.archive() == before) << operation;
            const char* words = operation == Embedded ? " Mipmap(s) inserted.\r\n" : " mipmap(s) inserted.\r\n";
            std::string lines;
            for (std::size_t i = 0; i < (operation == External ? count : 1); ++i) {
                const MipmapRecord& level = h.chosen().mipmaps[i];
                lines += h.image("wall-" + std::to_string(level.width) + "x" + std::to_string(level.height) + ".dds inserted.\r\n");
            }
            EXPECT_EQ(summary, h.copyLine(0) + lines + std::to_string(count) + words);
            EXPECT_TRUE(h.folder.read("copies/a-0.cdds") == blank);
            const CddsArchive catalogue = h.session.archive;
            h.read();
            EXPECT_TRUE(catalogue == h.session.archive);
        }
    }
}

TEST(Insertion, TakesEveryLevelBackFromItsImage) {
    const std::tuple<const char*, const char*, int, int> cases[] = {
        {"DXT1", "bmp", 16, 8}, {"DXT5", "tga", 12, 6}, {"DXT5", "tga", 7, 13}, {"DXT1", "bmp", 1, 6}};
    for (const auto& [type, extension, width, height] : cases) {
        InsertionHarness h;
        ArchiveBuilder builder{CddsType::TypeCdds,
                               {chainOf("wall", type, width, height, yellow, blue, 77), chainOf("next", type, 4, 4, blue, yellow)}};
        h.open(builder);
        const std::string before = h.archive();
        for (std::size_t i = 0; i < h.chosen().mipmaps.size(); ++i) {
            h.extract(NativeFileType, Single, static_cast<int>(i));
            const std::string blank = h.outside(before, {i});
            ASSERT_NE(h.folder.write("a.cdds", blank), "");
            const std::string summary = h.insert(NativeFileType, Single, [&] {
                h.check({static_cast<int>(i)});
                h.dialog.chkSaveCdds.setChecked(false);
            });
            const MipmapRecord& level = h.chosen().mipmaps[i];
            const std::string name = "wall-" + std::to_string(level.width) + "x" + std::to_string(level.height) + "." + extension;
            EXPECT_EQ(summary, h.noCopy() + h.image(name) + "\r\n1 mipmaps(s) inserted.");
            EXPECT_TRUE(h.outside(h.archive(), {i}) == blank && h.archive().size() == before.size());
            EXPECT_LE(h.difference(before, h.archive(), i), losses) << type << ' ' << level.width << 'x' << level.height;
            std::filesystem::remove(h.image(name));
        }
        EXPECT_EQ(h.names("images") + h.names("program"), "tmp1.dds");
    }
}

TEST(Insertion, CreatesTheChainWithEachFilter) {
    for (const FileTypeOption kind : {NativeFileType, DdsFileType}) {
        for (const char* type : {"DXT1", "DXT5"}) {
            InsertionHarness h;
            h.open({CddsType::Type0C, {chainOf("wall", type, 16, 24, yellow, blue, 77), chainOf("next", type, 4, 4, blue, yellow)}});
            const std::string before = h.archive();
            h.extract(kind, Single);
            const std::string source = h.names("images");
            const std::vector<std::size_t> all = upTo(h.chosen().mipmaps.size());
            for (int filter = 0; filter < 9; ++filter) {
                const std::string blank = h.outside(before, all);
                ASSERT_NE(h.folder.write("a.cdds", blank), "");
                const std::string summary = h.insert(kind, Create, [&] { h.dialog.lstScaleFilter.select(filter); });
                const std::string copied = kind == DdsFileType ? "" : h.copyLine(filter); // the summary starts anew there
                EXPECT_EQ(summary, copied + h.image(source) + "\r\n5 mipmaps(s) inserted.");
                EXPECT_TRUE(h.outside(h.archive(), all) == blank && h.archive().size() == before.size());
                for (const std::size_t i : upTo(3)) {
                    EXPECT_LE(h.difference(before, h.archive(), i), losses) << type << " filter " << filter << " level " << i;
                }
                EXPECT_TRUE(h.levelOf(h.archive(), 4) != h.levelOf(blank, 4));
                EXPECT_EQ(h.names("images"), source);
                EXPECT_EQ(h.names("program"), kind == DdsFileType ? "" : "tmp1.dds");
            }
        }
    }
}

/// An archive of one texture of three levels, and what is told when an insertion into it does not go as it should.
class TroubledInsertion : public ::testing::Test {
protected:
    TroubledInsertion() { h.open({CddsType::TypeCdds, {chainOf("wall", "DXT1", 4, 4, yellow, blue)}}); }

    std::string withoutCopy(FileTypeOption kind, MipmapOperation operation, const std::vector<int>& levels = {0, 1, 2}) {
        return h.insert(kind, operation, [&] {
            h.check(levels);
            h.dialog.chkSaveCdds.setChecked(false);
        });
    }
    std::string put(const std::string& name, const std::string& bytes) { return h.folder.write("images/" + name, bytes); }
    void expectBox(const std::string& text, const std::string& title, BoxIcon icon = BoxIcon::Critical) {
        EXPECT_EQ(h.boxes.take(), (std::vector<ShownBox>{{text, title, icon, BoxButtons::Ok}}));
    }

    InsertionHarness h;
    const std::string dds = std::string(128, 'h');
};

TEST_F(TroubledInsertion, SaysWhatIsMissingOrTooShortAndWritesNoneOfIt) {
    const std::string before = h.archive();
    const std::string level0 = h.image("wall-4x4.dds"), level1 = h.image("wall-2x2.dds"), level2 = h.image("wall-1x1.dds");
    const std::string noCopy = h.noCopy();
    EXPECT_EQ(withoutCopy(DdsFileType, Embedded), noCopy + level0 + " not found.\r\n");
    EXPECT_EQ(withoutCopy(DdsFileType, External, {}), noCopy + "0 mipmap(s) inserted.\r\n");
    put("wall-4x4.dds", dds + std::string(23, 'x'));
    EXPECT_EQ(withoutCopy(DdsFileType, Embedded), noCopy + level0 + " is too short.\r\n0 Mipmap(s) inserted.\r\n");
    put("wall-2x2.dds", dds + "1234567");
    EXPECT_EQ(withoutCopy(DdsFileType, External), noCopy + level1 + " is too short.\r\n" + level2 + " not found.\r\n0 mipmap(s) inserted.\r\n");
    EXPECT_EQ(withoutCopy(NativeFileType, Single, {}), "No mipmap selected.\r\n0 mipmaps(s) inserted.");
    EXPECT_TRUE(h.archive() == before);

    std::filesystem::remove(level0);
    put("wall-1x1.dds", dds + "abcdefgh and more");
    EXPECT_EQ(withoutCopy(DdsFileType, External, {0, 2}), noCopy + level0 + " not found.\r\n" + level2 + " inserted.\r\n1 mipmap(s) inserted.\r\n");
    EXPECT_TRUE(h.levelOf(h.archive(), 2) == "abcdefgh" && h.outside(h.archive(), {2}) == h.outside(before, {2}));
}

TEST_F(TroubledInsertion, RefusesImagesThatGiveTooLittle) {
    const std::string before = h.archive();
    const std::string image = h.image("wall-4x4.bmp");
    const std::string none = h.noCopy() + image + "\r\n0 mipmaps(s) inserted.";
    EXPECT_EQ(withoutCopy(NativeFileType, Create), none);
    const std::vector<ShownBox> shown = h.boxes.take();
    ASSERT_EQ(shown.size(), 2U);
    EXPECT_EQ(shown[1], (ShownBox{"LoadImage " + image + " error", "SimpleImageInsertion", BoxIcon::Critical, BoxButtons::Ok}));
    // A picture of one texel: its level has as many bytes as one of 4 x 4, its chain ends there.
    put("wall-4x4.bmp", "BM" + bytesOf("d58 d0 d54 d40 d1 d1 w1 w24 d0 d4 d0 d0 d0 d0 00FF0000"));
    EXPECT_EQ(withoutCopy(NativeFileType, Create), h.noCopy() + image + "\r\n" + image + " is too short.\r\n0 mipmaps(s) inserted.");
    expectBox("Error during insertion in CDDS.", "performSimpleImageInsertion");
    EXPECT_TRUE(h.archive() == before);
    EXPECT_EQ(h.names("images"), "wall-4x4.bmp");
    // Its level 0 is as long as the level, and the others are scaled to theirs.
    h.insert(NativeFileType, Create, [&] { h.dialog.lstScaleFilter.select(0); });
    EXPECT_TRUE(h.levelOf(h.archive(), 0) != h.levelOf(before, 0));
    // A larger one gives what lies where the levels' data is expected.
    std::filesystem::rename(image, h.image("wall-1x1.bmp"));
    put("wall-1x1.bmp", "BM" + bytesOf("d246 d0 d54 d40 d8 d8 w1 w24 d0 d192 d0 d0 d0 d0 192*FF"));
    withoutCopy(NativeFileType, Single, {2});
    EXPECT_EQ(h.levelOf(h.archive(), 2).substr(0, 2), bytesOf("FFFF"));
}

TEST_F(TroubledInsertion, RefusesAnArchiveThatIsNotTheOneRead) {
    put("wall-4x4.dds", dds + std::string(24, 'x'));
    put("wall-4x4.bmp", "BM" + bytesOf("d58 d0 d54 d40 d1 d1 w1 w24 d0 d4 d0 d0 d0 d0 00FF0000"));
    const std::string good = h.archive();
    std::string moved = good;
    moved[32 + 64 + 40 + 12] = 8; // a level's width
    const auto path = h.session.archivePath;
    const std::vector<std::function<void()>> changes = {
        [&] { (void)h.folder.write("a.cdds", good + "more"); }, [&] { (void)h.folder.write("a.cdds", moved); },
        [&] { (void)h.folder.write("a.cdds", "short"); },       [&] { std::filesystem::remove(path); },
        [&] { std::filesystem::create_directory(path); },       [&] { h.session.archivePath = h.folder.write("b.cdds", good); },
    };
    for (const auto& change : changes) {
        change();
        const bool there = fileExists(path);
        const std::string before = there ? h.archive() : "";
        for (const FileTypeOption kind : {DdsFileType, NativeFileType}) {
            EXPECT_EQ(h.insert(kind, kind == DdsFileType ? Embedded : Create), "Insertion canceled.");
            expectBox(h.session.archivePath + " is no longer the file that was read: it has been changed, replaced or removed.\r\n\r\nPlease read it "
                                              "again before you insert.",
                      "Pelrath - Insertion refused", BoxIcon::Exclamation);
        }
        EXPECT_TRUE(!there || h.archive() == before);
        EXPECT_EQ(h.names("copies"), "");
    }
}

TEST_F(TroubledInsertion, LooksAgainBeforeItWrites) {
    put("wall-4x4.dds", dds + std::string(24, 'x'));
    const std::string longer = h.archive() + "more";
    // The user answers a question, and the archive has become another meanwhile.
    h.session.settings.cddsBackupFolder = "";
    h.chosenFolder = h.folder.file("copies");
    struct ChangingBoxes : BusySign {
        void show(const std::string& /*what*/, std::uint64_t done, std::uint64_t total) override {
            if (done == total) change();
        }
        void clear() override {}
        std::function<void()> change;
    } sign;
    sign.change = [&] {
        (void)h.folder.write("b.cdds", longer);
        std::filesystem::rename(h.folder.file("b.cdds"), h.session.archivePath);
    };
    TextureExtractionInsertion dialog{
        h.session,
        {h.boxes, h.user, h.associations, [] {}, imageLibrary(), [&] { h.session.settings.cddsBackupFolder = h.folder.file("copies"); }, &sign}};
    std::string summary;
    h.session.mode = DialogMode::Insertion;
    h.user.acts = [&] {
        dialog.cmdExtractInsert.press();
        summary = dialog.ExtractSummary.text();
    };
    dialog.show(h.owner);
    EXPECT_EQ(summary, h.copyLine(0) + "0 Mipmap(s) inserted.\r\n");
    h.boxes.expect("no longer the file that was read");
    EXPECT_TRUE(h.archive() == longer);
}

TEST(Insertion, NeverWritesOverTheTables) {
    for (const CddsType type : {CddsType::TypeCdds, CddsType::Type0C}) {
        InsertionHarness h;
        ArchiveBuilder builder{type, {chainOf("wall", "DXT1", 4, 4, yellow, blue)}};
        builder.build();
        const std::int32_t table = builder.tableAt[0] + (type == CddsType::TypeCdds ? 40 : 0);
        for (const std::int32_t at : {0, builder.entryAt(0) + 60, builder.tableAt[0] - 7, table + 47}) {
            builder.patches[table + 16] = at - (table + 16); // where the second level says its data is
            h.open(builder);
            const std::string before = h.archive();
            ASSERT_NE(h.folder.write("images/wall-4x4.dds", std::string(128 + 24, 'x')), "");
            EXPECT_EQ(h.insert(DdsFileType, Embedded, [&] { h.dialog.chkSaveCdds.setChecked(false); }), h.noCopy() + "0 Mipmap(s) inserted.\r\n");
            h.boxes.expect("would overwrite its tables");
            EXPECT_TRUE(h.archive() == before) << at;
        }
    }
}

TEST_F(TroubledInsertion, CountsTheLevelsThatTheArchiveReallyGot) {
    put("wall-4x4.dds", dds + std::string(8, 'x') + std::string(8, 'y') + std::string(8, 'z'));
    put("wall-2x2.dds", dds + std::string(8, 'y'));
    put("wall-1x1.dds", dds + std::string(8, 'z'));
    const std::string before = h.archive();
    std::filesystem::permissions(h.session.archivePath, std::filesystem::perms::owner_read | std::filesystem::perms::others_exec);
    const std::string writable = "CDDS Attributes changed to Read Write\r\n", readOnly = "CDDS Attributes changed to Read Only\r\n";
    const std::string lines = h.image("wall-4x4.dds inserted.\r\n") + h.image("wall-2x2.dds inserted.\r\n");
    for (const MipmapOperation operation : {Embedded, External}) {
        // The third level's write breaks off in its middle.
        const FullDisk full{before.size() - 4};
        EXPECT_EQ(withoutCopy(DdsFileType, operation),
                  h.noCopy() + writable + (operation == Embedded ? "2 Mipmap(s)" : lines + "2 mipmap(s)") + " inserted.\r\n" + readOnly);
        const std::vector<ShownBox> shown = h.boxes.take();
        ASSERT_EQ(shown.size(), 2U);
        EXPECT_EQ(shown[0].text, h.session.archivePath +
                                     " is Read Only.\r\n\r\n- Select Ok to make it writable and perform the insertion,\r\n- Select "
                                     "Cancel to abort the insertion.");
        EXPECT_EQ(row(shown[0].title, static_cast<int>(shown[0].icon), static_cast<int>(shown[0].buttons)), "CDDS is read only, 3, 1");
        EXPECT_EQ(shown[1].text, "Insertion Error : 6 Overflow (" + h.session.archivePath + ")");
        EXPECT_TRUE(h.levelOf(h.archive(), 0) + h.levelOf(h.archive(), 1) == "xxxxxxxxyyyyyyyy");
        EXPECT_TRUE(h.levelOf(h.archive(), 2) == h.levelOf(before, 2)) << "a level is wholly old or wholly new";
        EXPECT_EQ(static_cast<unsigned>(std::filesystem::status(h.session.archivePath).permissions()), 0401U);
    }
    h.boxes.answer = BoxAnswer::Cancel;
    EXPECT_EQ(withoutCopy(DdsFileType, Embedded), h.noCopy());
    EXPECT_EQ(withoutCopy(NativeFileType, Create), h.noCopy() + "0 mipmaps(s) inserted.");
    EXPECT_EQ(h.boxes.take().size(), 2U);
}

std::uint32_t failing; // code that the next failing call leaves

TEST(Insertion, EndsInOrderWhereTheLibraryFails) {
    LibraryFunctions library = imageLibrary();
    library.ilGetError = [] { return std::exchange(failing, 0U); };
    const auto rightAway = [](std::uint32_t) -> std::uint8_t {
        failing = 0x0505;
        return 0;
    };
    LibraryFunctions copying = library, saving = library, deleting = library;
    copying.ilCopyImage = rightAway;
    saving.ilSaveImage = [](const char*) -> std::uint8_t {
        failing = 0x0505;
        return 0;
    };
    deleting.ilDeleteImages = [](std::size_t, const std::uint32_t*) { failing = 0x0505; };
    // The library, the first box's text, and how many levels got into the archive.
    const std::tuple<LibraryFunctions, const char*, int> cases[] = {{copying, "Insertion Error Number: 1285 -> ", 0},
                                                                    {saving, "ilSave Error Number: 1285 -> ", 0},
                                                                    {deleting, "Insertion Error Number: 1285 -> ", 0}};
    for (const auto& [functions, text, count] : cases) {
        InsertionHarness h{functions};
        h.open({CddsType::TypeCdds, {chainOf("wall", "DXT1", 4, 4, yellow, blue)}});
        ASSERT_NE(h.folder.write("images/wall-4x4.bmp", "BM" + bytesOf("d102 d0 d54 d40 d4 d4 w1 w24 d0 d48 d0 d0 d0 d0 48*F8")), "");
        std::filesystem::permissions(h.session.archivePath, std::filesystem::perms::owner_read);
        const std::string before = h.archive();
        const std::string summary = h.insert(NativeFileType, Create, [&] { h.dialog.lstScaleFilter.select(5); });
        EXPECT_EQ(summary, h.copyLine(0) + "CDDS Attributes changed to Read Write\r\n" + h.image("wall-4x4.bmp") +
                               "\r\nCDDS Attributes changed to Read Only\r\n" + std::to_string(count) + " mipmaps(s) inserted.");
        const std::vector<ShownBox> shown = h.boxes.take();
        ASSERT_EQ(shown.size(), 2U);
        EXPECT_TRUE(shown[1].text.starts_with(text)) << shown[1];
        EXPECT_TRUE(h.archive() == before);
        EXPECT_EQ(h.names("images") + h.names("program"), "wall-4x4.bmp");
        failing = 0;
    }
}

TEST(Insertion, TellsWhereTheSafeCopyIsWhenCreatingFromDdsFails) {
    InsertionHarness h;
    h.open({CddsType::TypeCdds, {chainOf("wall", "DXT1", 4, 4, yellow, blue)}});
    EXPECT_EQ(h.insert(DdsFileType, Create), h.copyLine(0) + h.image("wall-4x4.dds") + "\r\n0 mipmaps(s) inserted.");
    EXPECT_EQ(h.boxes.take().size(), 2U);
}

TEST(SafeCopyOfAnArchive, TakesTheNextNumberAndNeverAnothersPlace) {
    InsertionHarness h;
    h.open({CddsType::TypeCdds, {chainOf("wall", "DXT1", 4, 4, yellow, blue)}});
    const std::string before = h.archive();
    ASSERT_NE(h.folder.write("images/wall-4x4.dds", std::string(128 + 24, 'x')), "");
    ASSERT_NE(h.folder.write("copies/a-0.cdds", "earlier"), "");
    std::filesystem::create_symlink("nowhere", h.folder.file("copies/a-1.cdds"));
    std::filesystem::create_directory(h.folder.file("copies/a-2.cdds"));
    EXPECT_TRUE(h.insert(DdsFileType, Embedded).starts_with(h.copyLine(3)));
    EXPECT_TRUE(h.folder.read("copies/a-3.cdds") == before && h.folder.read("copies/a-0.cdds") == "earlier");
    const std::string size = std::to_string(before.size());
    EXPECT_EQ(h.sign.seen, "Copying a.cdds 0, " + size + "; Copying a.cdds " + size + ", " + size + "; clear");
    EXPECT_TRUE(h.insert(DdsFileType, Embedded).starts_with(h.copyLine(4)));

    // A folder that has gone, and the user's answers when asked for another.
    h.session.settings.cddsBackupFolder = h.folder.file("gone");
    EXPECT_EQ(h.insert(DdsFileType, Embedded), h.noCopy() + "CDDS Safe Copy folder undefined.\r\nInsertion canceled.");
    EXPECT_EQ(row(h.foldersAsked, h.dialog.txtCDDSBackupFolder.text(), h.dialog.chkSaveCdds.checked(), h.dialog.chkSaveCdds.enabled()),
              "1, Invalid CDDS Safe Copy Folder, false, true");
    h.chosenFolder = h.folder.file("copies");
    EXPECT_TRUE(h.insert(DdsFileType, Embedded).starts_with(h.copyLine(5)));
    EXPECT_EQ(h.dialog.txtCDDSBackupFolder.text(), h.chosenFolder);
}

TEST(SafeCopyOfAnArchive, StopsTheInsertionWhenItFails) {
    InsertionHarness h;
    h.open({CddsType::TypeCdds, {chainOf("wall", "DXT1", 4, 4, yellow, blue)}});
    const std::string before = h.archive();
    ASSERT_NE(h.folder.write("images/wall-4x4.dds", std::string(128 + 24, 'x')), "");
    {
        const FullDisk full{before.size() - 4};
        EXPECT_EQ(h.insert(DdsFileType, Embedded), h.noCopy() + "Insertion canceled.");
        h.boxes.expect("Safe Copy Error : 6 Overflow");
        EXPECT_EQ(h.names("copies"), "");
    }
    for (int number = 0; number <= 32767; ++number) {
        std::filesystem::create_hard_link(h.session.archivePath, h.folder.file("copies/a-" + std::to_string(number) + ".cdds"));
    }
    EXPECT_EQ(h.insert(DdsFileType, Embedded), h.noCopy() + "Insertion canceled.");
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
};

TEST_F(BazarTemp, GetsTheTextureUnderItsOwnName) {
    for (const auto& [type, start] : {std::pair{"DXT1", std::string{"BM"}}, std::pair{"DXT5", bytesOf("000002")}}) {
        h.open({CddsType::TypeCdds, {chainOf("wall.xyz", type, 4, 4, yellow, blue)}});
        h.extract(DdsFileType, Embedded);
        const std::string before = h.archive();
        const std::string copied = h.folder.file("bazar/wall.xyz") + " overwritten\r\n 1 file(s) copied.\r\n";
        EXPECT_EQ(copyTo(), h.noCopy() + copied);
        EXPECT_TRUE(h.folder.read("bazar/wall.xyz").starts_with(start)) << type;
        ASSERT_NE(h.folder.write("bazar/wall.xyz", "mine"), "");
        h.boxes.answer = BoxAnswer::Cancel;
        EXPECT_EQ(copyTo(true), h.noCopy() + h.image("wall-4x4.dds inserted.\r\n3 Mipmap(s) inserted.\r\n") + h.folder.file("bazar/wall.xyz"));
        h.boxes.answer = BoxAnswer::Ok;
        EXPECT_EQ(h.folder.read("bazar/wall.xyz"), "mine");
        EXPECT_EQ(copyTo(), h.noCopy() + copied);
        const ShownBox question{"File wall.xyz already exists in Bazar Temp folder. Overwrite it ?", "File exists", BoxIcon::None,
                                BoxButtons::OkCancel};
        EXPECT_EQ(h.boxes.take(), (std::vector<ShownBox>{question, question}));
        EXPECT_TRUE(h.folder.read("bazar/wall.xyz").starts_with(start) && h.archive() == before) << type;
        std::filesystem::remove(h.folder.file("bazar/wall.xyz"));
    }
}

TEST_F(BazarTemp, GetsNothingWhereThereIsNothingToCopyOrNowhereToPutIt) {
    EXPECT_EQ(copyTo(), h.noCopy()) << "no such file";
    const std::string source = put("wall-4x4.dds", "no picture");
    EXPECT_EQ(copyTo(), h.noCopy());
    const std::vector<ShownBox> shown = h.boxes.take();
    ASSERT_EQ(shown.size(), 2U);
    EXPECT_EQ(shown[1], (ShownBox{"LoadImage " + source + " error", "StoreCopyInBazarTemp", BoxIcon::Critical, BoxButtons::Ok}));
    h.extract(DdsFileType, Embedded);
    h.session.archive.textures[0].name = "../wall";
    EXPECT_EQ(copyTo(), h.noCopy());
    expectBox("Store texture Copy Error : 52 Bad file name or number (../wall)", "Pelrath");
    EXPECT_EQ(h.names("bazar"), "");
}

}} // namespace pelrath::test
