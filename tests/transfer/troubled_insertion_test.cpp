#include "support/refusals.hpp"
#include "transfer_harness.hpp"

namespace pelrath::test {
namespace {

namespace fs = std::filesystem;
using Boxes = std::vector<ShownBox>;

// Lines of a summary.
const std::string writable = "CDDS Attributes changed to Read Write|",
                  readOnly = "CDDS Attributes changed to Read Only|";

std::string bitmapOf(int side, const std::string& pixels) {
    const std::string sides = " d" + std::to_string(side) + " d" + std::to_string(side);
    return "BM" + bytesOf("d0 d0 d54 d40" + sides + " w1 w24 d0 d0 d0 d0 d0 d0 " + pixels);
}

/// Insertions that do not go as they should, into one texture of three levels of 8 bytes. There are a DDS
/// file and an image of level 0.
struct TroubledInsertion : testing::Test, TransferHarness {
    TroubledInsertion() {
        reopen();
        put("wall-4x4.dds", chain);
        put("wall-4x4.bmp", bitmapOf(4, "48*F8"));
    }
    void reopen() {
        open({cdds, {chainOf("wall.xyz", "DXT1", 4, 4)}});
        before = archive();
    }
    void put(const std::string& name, const std::string& bytes) const {
        (void)folder.write("out/" + name, bytes);
    }
    void remove(const std::string& name) const { fs::remove(folder.file("out/" + name)); }
    void permit(unsigned bits) const { folder.permit("a.cdds", bits); }
    void clear(const std::string& inside) const {
        for (const std::string& name : folder.names(inside)) {
            folder.remove(inside + "/" + name);
        }
    }

    const std::string chain = std::string(128, 'h') + "xxxxxxxxyyyyyyyyzzzzzzzz",
                      path = folder.file("a.cdds");
    std::string before; // the archive's bytes
};

TEST_F(TroubledInsertion, WorksWhereItsWorkingFilesCannotBeInTheProgramFolder) {
    const TemporaryFilesIn own{folder.file("own")};
    folder.makeFolder("program/tmp1.dds"), folder.makeFolder("program/tmp2.dds");
    EXPECT_EQ(extract({images, overwriting}), "out/wall-4x4.bmp overwritten.|1 file(s) extracted.");
    EXPECT_EQ(insert({images, withoutSafeCopy, filter(0)}),
              noCopy + "out/wall-4x4.bmp|3 mipmaps(s) inserted.");
    EXPECT_EQ(session.programFolder.removeTemporaryFiles().size(), 2U) << "the folders in their places";
    EXPECT_EQ(files("own"), "");
}

TEST_F(TroubledInsertion, SaysWhatIsMissingOrTooShortAndWritesNoneOfIt) {
    // The length of the largest level's file, the steps, the summary behind its first line.
    const std::tuple<std::size_t, Steps, const char*> cases[] = {
        {0, {embedded}, "out/wall-4x4.dds not found.|"},
        {0, {external, noLevel}, "0 mipmap(s) inserted.|"},
        {0, {single, noLevel}, "No mipmap selected.|0 mipmap(s) inserted.|"},
        {0, {images, single, noLevel}, "No mipmap selected.|0 mipmaps(s) inserted."},
        {100, {embedded}, "out/wall-4x4.dds is too short.|0 Mipmap(s) inserted.|"},
        {151, {embedded}, "out/wall-4x4.dds is too short.|0 Mipmap(s) inserted.|"},
        {135, {external, unmark(1)}, "out/wall-4x4.dds is too short.|0 mipmap(s) inserted.|"}};
    remove("wall-4x4.dds");
    put("wall-1x1.dds", chain);
    for (const auto& [size, steps, lines] : cases) {
        if (size > 0) put("wall-4x4.dds", chain.substr(0, size));
        const std::string copied = std::string_view{lines}.starts_with("No") ? "" : noCopy;
        EXPECT_EQ(insert({all(steps), withoutSafeCopy}), copied + lines);
    }
    EXPECT_TRUE(archive() == before && files("copies").empty());
    remove("wall-4x4.dds");
    EXPECT_EQ(insert({external, unmark(1)}),
              copyLine(0) + "out/wall-4x4.dds not found.|out/wall-1x1.dds inserted.|1 mipmap(s) inserted.|");
    EXPECT_TRUE(levelOf(archive(), 2) == "xxxxxxxx" && outside(archive(), 2) == outside(before, 2));
    open({cdds, {{"wall.xyz", "DXT1", {{4, 4, "12345678"}, {1, 1, ""}}}}});
    EXPECT_EQ(insert({single, mark(1), withoutSafeCopy}), noCopy + "0 mipmap(s) inserted.|");
    boxes.expect("level 1 of the texture has no data in ");
}

TEST_F(TroubledInsertion, TakesFromAnImageOfAnotherSizeWhatLiesInTheLevelsPlaces) {
    const std::string nothing = "0 mipmaps(s) inserted.", image = noCopy + "out/wall-4x4.bmp|";
    remove("wall-4x4.bmp");
    EXPECT_EQ(insert({images, withoutSafeCopy}), image + nothing);
    EXPECT_EQ(boxes.take().at(1), (ShownBox{"LoadImage " + folder.file("out/wall-4x4.bmp") + " error",
                                            "SimpleImageInsertion", BoxIcon::Critical, BoxButtons::Ok}));
    // One texel: its level 0 is as long as one of 4 x 4, and its chain ends there.
    put("wall-4x4.bmp", bitmapOf(1, "00FF0000"));
    EXPECT_EQ(insert({images, withoutSafeCopy}), image + "out/wall-4x4.bmp is too short.|" + nothing);
    boxes.expect({"Error during insertion in CDDS.", "performSimpleImageInsertion", BoxIcon::Critical});
    EXPECT_EQ(row(archive() == before, files()), "true, wall-4x4.bmp wall-4x4.dds");
    const std::string built = folder.file("out/wall-4x4_tmppelrath.dds");
    fs::create_directory(built);
    EXPECT_EQ(insert({images, withoutSafeCopy}), image + nothing);
    boxes.expect("Insertion Error : 75 Path/File access error");
    fs::remove(built);
    insert({images, filter(0)}); // scales each level by itself
    EXPECT_TRUE(levelOf(archive(), 0) != levelOf(before, 0) && levelOf(archive(), 2) != levelOf(before, 2));
    put("wall-1x1.bmp", bitmapOf(8, "192*FF"));
    insert({images, single, mark(2)});
    EXPECT_EQ(levelOf(archive(), 2).substr(0, 2), bytesOf("FFFF"));
}

TEST_F(TroubledInsertion, RefusesAnArchiveThatIsNotTheOneRead) {
    replaceByATwin();
    const std::string changed = archive();
    for (const Step& kind : {Step{ddsFiles}, Step{images}}) {
        EXPECT_EQ(insert({kind}), "Insertion canceled.");
        boxes.expect({"The insertion was stopped: " + path +
                          " has been replaced by another file since it was read. Please read it again.",
                      "Pelrath - Insertion refused"});
    }
    EXPECT_EQ(row(archive() == changed, files("copies")), "true, ");
    // Without the archive for a destination, a copy may still be wanted.
    EXPECT_EQ(insert({notIntoArchive, withSafeCopy}), noCopy + "Insertion canceled.");
    boxes.expect("Safe Copy Error : 75 ");
}

TEST_F(TroubledInsertion, NeverTouchesWhatTakesTheArchivesPlaceMeanwhile) {
    permit(0400);
    fs::create_hard_link(path, folder.file("own"));
    sign.atTheEnd = [&] { // of the safe copy
        replaceByATwin();
        permit(0404);
    };
    EXPECT_EQ(insert({embedded}), copyLine(0) + writable + "0 Mipmap(s) inserted.|" + readOnly);
    EXPECT_EQ(boxes.take().at(1).title, "Pelrath - Insertion refused");
    EXPECT_TRUE(archive() == outside(before) && folder.read("own") == before);
    EXPECT_EQ(row(folder.permitted("a.cdds"), folder.permitted("own")), row(0404, 0400));

    reopen();
    HeldArchive held{session};
    ASSERT_TRUE(held.file());
    replaceByATwin();
    EXPECT_THROW(held.overwriteLevels({{chosen().mipmaps[2].dataOffset, std::vector<std::byte>(8)}}),
                 ArchiveRefused);
    EXPECT_TRUE(archive() == outside(before));
    EXPECT_EQ(files("program"), "");
}

TEST_F(TroubledInsertion, NeverWritesOverTheTables) {
    for (const CddsType type : {cdds, CddsType::Type0C}) {
        ArchiveBuilder builder{type, {chainOf("wall", "DXT1", 4, 4)}};
        builder.build();
        const std::int32_t table = builder.tableAt[0] + (type == cdds ? 40 : 0);
        for (const std::int32_t at : {0, builder.entryAt(0) + 60, builder.tableAt[0] + 20, table + 47}) {
            builder.patches[table + 16] = at - (table + 16); // where the second level says its data is
            open(builder);
            before = archive();
            EXPECT_EQ(insert({withoutSafeCopy}), noCopy + "0 Mipmap(s) inserted.|");
            boxes.expect("would overwrite its tables");
            EXPECT_TRUE(archive() == before) << at;
        }
    }
}

TEST_F(TroubledInsertion, PutsAllLevelsBackWhereOneIsRefused) {
    // Long enough for the journal to fit where the end of the archive does not.
    open({cdds, {chainOf("other", "DXT1", 64, 64), chainOf("wall.xyz", "DXT1", 4, 4)}});
    choose(1);
    before = archive();
    permit(0421);
    // How many bytes of the third level's eight the disk takes, the steps, the summary's end.
    const std::tuple<std::size_t, Steps, const char*> cases[] = {
        {4, {embedded}, "0 Mipmap(s) inserted.|CDDS Attributes changed to Read Only|"},
        {0, {external}, "0 mipmap(s) inserted.|CDDS Attributes changed to Read Only|"},
        {4,
         {images, create},
         "out/wall-4x4.bmp|CDDS Attributes changed to Read Only|0 mipmaps(s) inserted."}};
    const std::string question =
        path + " is Read Only.\r\n\r\n- Select Ok to make it writable and perform the insertion,\r\n"
               "- Select Cancel to abort the insertion.";
    put("wall-2x2.dds", chain), put("wall-1x1.dds", chain);
    for (const auto& [taken, steps, end] : cases) {
        const FullDisk full{before.size() - 8 + taken};
        EXPECT_EQ(insert({all(steps), withoutSafeCopy}), noCopy + writable + end);
        const Boxes shown = boxes.take();
        ASSERT_GE(shown.size(), 2U);
        EXPECT_EQ(shown[0],
                  (ShownBox{question, "CDDS is read only", BoxIcon::Question, BoxButtons::OkCancel}));
        EXPECT_EQ(shown[1], (ShownBox{"Insertion Error : 6 Overflow (" + path +
                                          ": beyond the length that files may have here)",
                                      "Pelrath", BoxIcon::Critical, BoxButtons::Ok}));
        EXPECT_TRUE(archive() == before) << end;
        EXPECT_EQ(row(folder.permitted("a.cdds"), files("program")), row(0421, ""));
    }
    boxes.answer = BoxAnswer::Cancel;
    EXPECT_EQ(insert({withoutSafeCopy}), noCopy);
    EXPECT_EQ(insert({images, withoutSafeCopy}), noCopy + "0 mipmaps(s) inserted.");
    EXPECT_EQ(boxes.take().size(), 2U);
}

std::uint32_t leftCode; // by the next library call that fails
std::string vanishing;  // the archive, with the library's next save

TEST(Insertion, EndsInOrderWhereTheLibraryFailsOrTheArchiveVanishes) {
    LibraryFunctions library = imageLibrary();
    library.ilGetError = [] { return std::exchange(leftCode, 0U); };
    LibraryFunctions copying = library, saving = library, deleting = library, late = library;
    copying.ilCopyImage = [](std::uint32_t) -> std::uint8_t { return leftCode = 0x0505, 0; };
    saving.ilSaveImage = [](const char*) -> std::uint8_t { return leftCode = 0x0505, 0; };
    deleting.ilDeleteImages = [](std::size_t, const std::uint32_t*) { leftCode = 0x0505; };
    late.ilSaveImage = [](const char* name) {
        return fs::remove(vanishing), imageLibrary().ilSaveImage(name);
    };
    const std::string failed = " Error Number: 1285 -> IL_INVALID_VALUE ";
    // The library, how the message begins, the filter, and how many levels the archive has got by then.
    const std::tuple<LibraryFunctions, std::string, int, int> cases[] = {
        {copying, "Insertion" + failed, 5, 0},
        {saving, "ilSave" + failed, 5, 0},
        {deleting, "Insertion" + failed, 5, 0},
        {deleting, "Insertion" + failed, 2, 3},
        {late, "", 2, 0}};
    for (const auto& [functions, start, index, count] : cases) {
        TransferHarness h{functions};
        h.open({cdds, {chainOf("wall", "DXT1", 4, 4)}});
        const std::string before = h.archive();
        vanishing = h.session.archivePath;
        (void)h.folder.write("out/wall-4x4.bmp", bitmapOf(4, "48*F8"));
        fs::permissions(vanishing, fs::perms::owner_read);
        EXPECT_EQ(h.insert({images, filter(index)}), copyLine(0) + writable + "out/wall-4x4.bmp|" + readOnly +
                                                         std::to_string(count) + " mipmaps(s) inserted.");
        const Boxes shown = h.boxes.take(); // behind the question
        ASSERT_EQ(shown.size(), 2U);
        EXPECT_TRUE(shown[1].text.starts_with(start)) << shown[1];
        EXPECT_EQ(shown[1].title, start.empty() ? "Pelrath - Insertion refused" : "Pelrath");
        EXPECT_EQ(row(h.archive() == before, h.files(), h.files("program")),
                  row(count == 0 && !start.empty(), "wall-4x4.bmp", ""));
        leftCode = 0;
    }
}

TEST_F(TroubledInsertion, SaysAllThatBecameOfTheArchiveAndNeverReplacesIt) {
    permit(0400);
    const std::string rest = writable + "out/wall-4x4.dds|" + readOnly + "3 mipmaps(s) inserted.";
    extract({embedded, overwriting});
    EXPECT_EQ(insert({create}), copyLine(0) + rest);
    EXPECT_EQ(insert({create, withoutSafeCopy}), noCopy + rest);
    boxes.take(); // the questions
    session.archive.textures[0].name = "a.cdds";
    session.settings.bazarTempFolder = folder.path();
    (void)insert({notIntoArchive, intoBazarTemp});
    boxes.expect("is the open archive");
    EXPECT_EQ(archive().size(), before.size());
}

TEST_F(TroubledInsertion, MakesItsSafeCopyUnderTheNextNumberThatNothingHas) {
    (void)folder.write("copies/a-0.cdds", "earlier");
    fs::create_symlink("nowhere", folder.file("copies/a-1.cdds"));
    fs::create_directory(folder.file("copies/a-2.cdds"));
    EXPECT_TRUE(insert({}).starts_with(copyLine(3)));
    EXPECT_TRUE(folder.read("copies/a-3.cdds") == before && folder.read("copies/a-0.cdds") == "earlier");
    const std::string size = std::to_string(before.size());
    EXPECT_EQ(sign.seen, "Copying a.cdds 0, " + size + "; Copying a.cdds " + size + ", " + size + "; clear");
    EXPECT_TRUE(insert({run}).starts_with(copyLine(5))) << "a second insertion from one dialog";

    // A folder that has gone, and the user's answers when asked for another.
    std::string answer;
    chooseSafeCopyFolder = [&] { session.settings.cddsBackupFolder = answer; };
    session.settings.cddsBackupFolder = folder.file("gone");
    EXPECT_EQ(insert({}), noCopy + "CDDS Safe Copy folder undefined.|Insertion canceled.");
    EXPECT_EQ(
        row(dialog.txtCDDSBackupFolder.text(), dialog.chkSaveCdds.checked(), dialog.chkSaveCdds.enabled()),
        "Invalid CDDS Safe Copy Folder, false, true");
    answer = folder.file("copies");
    EXPECT_TRUE(insert({}).starts_with(copyLine(6)));
    EXPECT_EQ(dialog.txtCDDSBackupFolder.text(), answer);
}

TEST_F(TroubledInsertion, InsertsNothingWithoutTheSafeCopyThatIsWanted) {
    {
        const FullDisk full{before.size() - 4};
        EXPECT_EQ(insert({}), noCopy + "Insertion canceled.");
        boxes.expect("Safe Copy Error : 6 Overflow");
        EXPECT_EQ(files("copies"), "");
    }
    const std::string taken = folder.file("out/wall-4x4.dds"), start = folder.file("copies/a-");
    for (int i = 0; i <= 32767; ++i) {
        fs::create_hard_link(taken, start + std::to_string(i) + ".cdds");
    }
    EXPECT_EQ(insert({}), noCopy + "Insertion canceled.");
    boxes.expect("Safe Copy Error : 58 File already exists (all numbers up to 32767 are taken in ");
    EXPECT_TRUE(archive() == before);
}

TEST_F(TroubledInsertion, CopiesTheTextureIntoBazarTempUnderItsOwnName) {
    const std::string copied = noCopy + "bazar/wall.xyz overwritten| 1 file(s) copied.|";
    const ShownBox question{"File wall.xyz already exists in Bazar Temp folder. Overwrite it ?",
                            "File exists", BoxIcon::None, BoxButtons::OkCancel};
    for (const auto& [type, start] :
         {std::pair{"DXT1", std::string{"BM"}}, std::pair{"DXT5", bytesOf("000002 9*00 w4 w4 2008")}}) {
        open({cdds, {chainOf("wall.xyz", type, 4, 4)}});
        extract({embedded, overwriting, run, images}); // an image of which the top row comes first
        EXPECT_EQ(insert({single, noLevel, notIntoArchive, intoBazarTemp}), copied);
        EXPECT_TRUE(folder.read("bazar/wall.xyz").starts_with(start)) << type;
        extract({images, overwriting});
        EXPECT_EQ(folder.read("out/wall-4x4.tga").substr(0, 18).ends_with('\x28'), type[3] == '5');
        (void)folder.write("bazar/wall.xyz", "mine");
        boxes.answer = BoxAnswer::Cancel;
        EXPECT_EQ(insert({withoutSafeCopy, intoBazarTemp}),
                  noCopy + "out/wall-4x4.dds inserted.|3 Mipmap(s) inserted.|bazar/wall.xyz");
        boxes.expect(question);
        EXPECT_EQ(folder.read("bazar/wall.xyz"), "mine");
        boxes.answer = BoxAnswer::Ok;
        EXPECT_EQ(insert({notIntoArchive, intoBazarTemp}), copied);
        boxes.expect(question);
        EXPECT_TRUE(folder.read("bazar/wall.xyz").starts_with(start)) << type;
        fs::remove(folder.file("bazar/wall.xyz"));
        EXPECT_EQ(insert({create, withoutSafeCopy, intoBazarTemp}),
                  noCopy + "out/wall-4x4.dds|3 mipmaps(s) inserted.|bazar/wall.xyz overwritten|"
                           " 1 file(s) copied.|");
        fs::remove(folder.file("bazar/wall.xyz"));
    }
}

TEST_F(TroubledInsertion, CopiesNothingWhereThereIsNothingToCopyOrNowhereToPutIt) {
    const Step copying = all({notIntoArchive, intoBazarTemp});
    EXPECT_EQ(insert({copying}), noCopy) << "no picture";
    const ShownBox unreadable{"LoadImage " + folder.file("out/wall-4x4.dds") + " error",
                              "StoreCopyInBazarTemp", BoxIcon::Critical, BoxButtons::Ok};
    EXPECT_EQ(boxes.take().at(1), unreadable);
    remove("wall-4x4.dds");
    EXPECT_EQ(insert({copying}), noCopy);
    extract({embedded});
    fs::create_directory(folder.file("bazar/wall.xyz"));
    EXPECT_EQ(insert({copying}), noCopy + "bazar/wall.xyz not written.|");
    boxes.expect("ImageSave Error : 75 Path/File access error (");
    session.archive.textures[0].name = "../wall";
    EXPECT_EQ(insert({copying}), noCopy);
    boxes.expect("Store texture Copy Error : 52 The texture's name \"../wall\" cannot be the name of a file");
    EXPECT_EQ(files("bazar"), "wall.xyz");
}

TEST_F(TroubledInsertion, LooksBeforeTheSafeCopyWhetherTheArchiveCanBeWritten) {
    permit(0400);
    const Refusal readOnlyDisk{Call::OpenToWrite, EROFS};
    for (const Step& kind : {Step{images}, Step{ddsFiles}}) {
        EXPECT_EQ(insert({kind}), "Insertion canceled.");
        boxes.expect("can only be read. Please open a copy");
    }
    EXPECT_EQ(files("copies"), "");
}

// With each round one more flush goes well before one fails, until all do.
TEST_F(TroubledInsertion, TellsOfEachFlushThatFailsAndLeavesTheArchiveWholeAndFree) {
    int spared = -1;
    for (std::size_t told = 2; told > 1 && spared < 30;) {
        ++spared;
        remove("../a.cdds"), clear("program"), reopen(), permit(0400);
        bool noted = true;
        {
            const Answering failing{Call::Flush, [&, count = 0](std::uint64_t) mutable {
                                        noted &=
                                            folder.permitted("a.cdds") == 0400 || !files("program").empty();
                                        return count++ == spared ? EIO : 0;
                                    }};
            (void)insert({embedded, withoutSafeCopy});
        }
        told = boxes.take().size(); // the question is one
        EXPECT_TRUE(noted) << "it can be written, and no journal says so: " << spared;
        EXPECT_TRUE(archive() == before || archive().ends_with(chain.substr(128))) << spared;
        EXPECT_EQ(folder.permitted("a.cdds"), 0400U) << spared;
        const InputFile other{path};
        EXPECT_EQ(tryLock(other.handle(), LockKind::Exclusive), LockAnswer::Held) << spared;
        releaseLock(other.handle());
        permit(0440);
        boxes.answer = BoxAnswer::Cancel;
        EXPECT_EQ(insert({embedded, withoutSafeCopy}), noCopy) << "what is owed from before is forgotten";
        boxes.answer = BoxAnswer::Ok;
        boxes.take();
    }
    EXPECT_EQ(spared, 9) << "flushes";
}

TEST_F(TroubledInsertion, TellsOfEachWorkingFileThatStays) {
    const TemporaryFilesIn own{folder.file("own")};
    for (int round = 0; round < 24; ++round) {
        {
            const Refusal once{Call::Remove, EIO, round / 2, 1};
            (void)(round % 2 == 0 ? insert({images, filter(0), withoutSafeCopy})
                                  : extract({launching, overwriting}));
        }
        const std::string there = row(files(), files("program"), files("own"));
        const bool told = !boxes.take().empty();
        EXPECT_TRUE(told || there == "wall-4x4.bmp wall-4x4.dds, , ") << round << ": " << there;
        clear("program"), clear("own");
    }
}

TEST_F(TroubledInsertion, ClearsTheFoldersThatItWorksInOfWhatADeadProgramLeft) {
    for (const char* name : {"out", "copies", "bazar"}) {
        (void)folder.write(std::string{name} + "/.pelrath-abcdef", "x");
    }
    extract({embedded, overwriting});
    put("x-4x4_tmppelrath.dds", "x");
    (void)insert({create, intoBazarTemp});
    EXPECT_EQ(row(files(), files("copies"), files("bazar")), "wall-4x4.bmp wall-4x4.dds, a-0.cdds, wall.xyz");
}

} // namespace
} // namespace pelrath::test
