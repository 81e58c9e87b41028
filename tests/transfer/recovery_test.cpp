#include "archive/journal.hpp"
#include "platform/posix/file_lock.hpp"
#include "support/refusals.hpp"
#include "transfer_harness.hpp"

namespace pelrath::test {
namespace {

namespace fs = std::filesystem;

/// An insertion of two levels into a read-only archive, at whose end the program has died: the levels are
/// new, the archive can still be written, the journal is there.
struct InterruptedInsertion : TransferHarness {
    InterruptedInsertion() {
        open({CddsType::TypeCdds, {chainOf("wall.bmp", "DXT1", 4, 4)}});
        before = archive();
        fs::permissions(path, fs::perms{0444});
    }
    /// Dies with its permissions changed only, or with its levels written as well.
    void die(bool written = true) {
        HeldArchive held{session};
        held.noteMode(0444);
        fs::permissions(path, fs::perms{0644});
        if (written) held.overwriteLevels({newLevel(0), newLevel(2)});
        after = archive();
    }
    [[nodiscard]] LevelBytes newLevel(std::size_t level) const {
        return {chosen().mipmaps[level].dataOffset, std::vector<std::byte>(8, std::byte{'n'})};
    }
    void write(const std::string& bytes) const { (void)folder.write("a.cdds", bytes); }
    /// The last bytes have not reached the disk.
    void tear() const { write(after.substr(0, after.size() - 4) + before.substr(after.size() - 4)); }
    /// As somebody does who has a copy, behind the tick of the clock in which the program died.
    void putBack() const {
        const std::int64_t changed = identityOf(path)->statusChanged;
        while (identityOf(path)->statusChanged == changed)
            write(before);
    }
    [[nodiscard]] std::string journal() const { return "program/" + folder.names("program").at(0); }
    [[nodiscard]] unsigned permitted() const { return static_cast<unsigned>(fs::status(path).permissions()); }

    std::string path = folder.file("a.cdds"), before, after;
};

TEST(Recovery, CompletesOrGivesUpWhatWasInterrupted) {
    using Case = InterruptedInsertion;
    const char* const beginning = "The insertion of the texture \"wall.bmp\" into ";
    const char* const completed =
        " was interrupted. It has been completed now: all its 2 levels have the new "
        "data. The archive is read only again.";
    const char* const nothing =
        " was interrupted. Where no summary was shown, nothing was written: please insert the texture again.";
    const char* const old =
        " was interrupted, and the archive has the old data. Please insert the texture again. "
        "The archive is read only again now.";
    const char* const damaged =
        "An insertion was interrupted and cannot be completed: its journal is damaged";
    const char* const kept = " was interrupted and cannot be completed: ";
    // What happens behind the program's end; the words that are told behind the archive's path, if any;
    // whether the levels are all new or the file is as it was found; the permissions; whether the journal is
    // still there.
    struct Row {
        const char* name;
        bool written;
        std::function<void(Case&)> happens;
        const char* told;
        bool levelsNew;
        unsigned mode;
        bool journalStays;
    };
    std::optional<InputFile> living;
    const auto livesWith = [&living](const std::string& file) {
        living.emplace(file);
        EXPECT_EQ(tryLock(living->handle(), LockKind::Exclusive), LockAnswer::Held);
    };
    const Row rows[] = {
        {"nothing", true, [](Case&) {}, completed, true, 0444, false},
        {"a level is torn", true, &Case::tear, completed, true, 0444, false},
        {"the archive was restored from a copy", true, &Case::putBack, old, false, 0444, false},
        {"a level has bytes of somebody else", true,
         [](Case& at) { at.write(at.after.substr(0, at.after.size() - 1) + "?"); }, kept, false, 0444, true},
        {"somebody made it read-only again", true,
         [](Case& at) { at.tear(), fs::permissions(at.path, fs::perms{0444}); },
         " was interrupted. It has been completed now: all its 2 levels have the new data.", true, 0444,
         false},
        {"only the permissions had changed", false, [](Case&) {},
         " was interrupted. The archive is read only again now. Where no summary was shown, nothing was "
         "written: please insert the texture again.",
         false, 0444, false},
        {"permissions, and another archive stands there", false,
         [](Case& at) { at.replaceByATwin(), fs::permissions(at.path, fs::perms{0600}); }, nothing, false,
         0600, false},
        {"a twin stands in its place", true, [](Case& at) { at.replaceByATwin(); }, kept, false, 0644, true},
        {"other tables", true, [](Case& at) { at.write("cdds" + std::string(at.before.size() - 4, '\0')); },
         kept, false, 0444, true},
        {"another name in its tables", true,
         [](Case& at) { at.write(at.after.substr(0, 32) + "?" + at.after.substr(33)); }, kept, false, 0444,
         true},
        {"longer", true, [](Case& at) { at.write(at.after + "x"); }, kept, false, 0644, true},
        {"gone", true, [](Case& at) { fs::rename(at.path, at.path + "~"); }, kept, false, 0, true},
        {"a journal of which a byte has changed", true,
         [](Case& at) {
             std::string bytes = at.folder.read(at.journal());
             bytes.back() = static_cast<char>(bytes.back() ^ 1);
             (void)at.folder.write(at.journal(), bytes);
         },
         damaged, false, 0644, true},
        {"a journal whose length has run wild", true,
         [](Case& at) { fs::resize_file(at.folder.file(at.journal()), std::uintmax_t{1} << 40); }, damaged,
         false, 0644, true},
        {"half a journal", true,
         [](Case& at) {
             at.write(at.before);
             fs::resize_file(at.folder.file(at.journal()), 100);
         },
         nullptr, false, 0644, false},
        {"a journal whose length of a text has changed", true,
         [](Case& at) {
             std::string bytes = at.folder.read(at.journal());
             bytes[30] = 1;
             (void)at.folder.write(at.journal(), bytes);
         },
         damaged, false, 0644, true},
        {"the program lives", true, [&](Case& at) { at.tear(), livesWith(at.path); }, nullptr, false, 0644,
         true},
        {"the program lives, on a disk without locks", true,
         [&](Case& at) { at.tear(), livesWith(at.folder.file(at.journal())); }, nullptr, false, 0644, true},
    };
    for (const Row& row : rows) {
        InterruptedInsertion at;
        at.die(row.written);
        row.happens(at);
        const std::string found = at.archive();
        at.recovery.look();
        const std::vector<ShownBox> shown = at.boxes.take();
        ASSERT_EQ(shown.size(), row.told == nullptr ? 0U : 1U) << row.name;
        if (row.told != nullptr) {
            const std::string start = row.told == damaged ? damaged : beginning + at.path + row.told;
            const bool goesOn = row.told == kept || row.told == damaged;
            EXPECT_EQ(shown[0].text.substr(0, goesOn ? start.size() : std::string::npos), start) << row.name;
            EXPECT_EQ(shown[0].title, "Pelrath - Interrupted insertion");
        }
        EXPECT_TRUE(at.archive() == (row.levelsNew ? at.after : found)) << row.name;
        EXPECT_TRUE(row.mode == 0 || at.permitted() == row.mode) << row.name;
        EXPECT_EQ(at.files("program").empty(), !row.journalStays) << row.name;
        at.recovery.look(); // tells no more than what is new
        living.reset();
    }
}

TEST(Recovery, ComesBeforeTheNextInsertionWhichIsRefusedWhereItFails) {
    InterruptedInsertion at;
    at.die();
    at.extract({embedded});
    at.tear();
    {
        const FullDisk full{at.after.size() - 4};
        EXPECT_EQ(at.insert({withoutSafeCopy}), "Insertion canceled.");
        const std::vector<ShownBox> shown = at.boxes.take();
        ASSERT_EQ(shown.size(), 2U);
        EXPECT_NE(shown[0].text.find("cannot be completed: Overflow"), std::string::npos) << shown[0];
        EXPECT_EQ(shown[1].title, "Pelrath - Insertion refused");
    }
    // The completion is no other program's change.
    EXPECT_NE(at.insert({withoutSafeCopy}).find("|3 Mipmap(s) inserted.|"), std::string::npos);
    const std::vector<ShownBox> shown = at.boxes.take();
    ASSERT_EQ(shown.size(), 2U) << "the second one asks about the attribute";
    EXPECT_NE(shown[0].text.find("It has been completed now"), std::string::npos) << shown[0];
    EXPECT_EQ(row(at.archive() == at.after, at.files("program")), "true, ");

    // Bytes that look old can be new on a disk that has refused to take them.
    at.rewrite(at.before);
    at.die();
    at.putBack();
    fs::permissions(at.path, fs::perms{0444}); // so that nothing else asks the disk
    {
        const Refusal broken{Call::Flush, EIO};
        at.recovery.look();
        at.boxes.expect("cannot be completed: Device I/O error");
    }
    EXPECT_EQ(at.folder.names("program").size(), 1U);
    at.session.otherProgramFolder = at.session.programFolder.path(); // of a run with other permissions
    at.session.programFolder = at.folder.file("copies");
    at.recovery.look();
    at.boxes.expect("and the archive has the old data");
    EXPECT_EQ(at.files("program"), "");
    at.session.programFolder = at.folder.file("program");

    at.rewrite(at.after);
    at.die();
    const std::string journal = at.folder.file(at.journal());
    at.rewrite(at.after);
    fs::remove(journal), fs::create_directory(journal); // one that nobody can read
    EXPECT_EQ(at.insert({withoutSafeCopy}), "No Safe Copy of a.cdds done|0 Mipmap(s) inserted.|");
    EXPECT_EQ(at.boxes.take().size(), 2U) << "another one of that name is told, and refuses";
    EXPECT_EQ(at.insert({withoutSafeCopy}), "No Safe Copy of a.cdds done|0 Mipmap(s) inserted.|");
    at.boxes.expect("an earlier insertion into "); // what has been told is not told again
    EXPECT_TRUE(at.archive() == at.after);

    fs::remove(journal);
    at.rewrite(at.after);
    at.die();
    at.tear();
    const std::string torn = at.archive(), other = at.folder.file("elsewhere.cdds");
    fs::rename(at.path, other);
    at.session.archivePath = other;
    at.session.archiveFile = ArchiveFile{InputFile{other}};
    EXPECT_NE(at.insert({withoutSafeCopy}).find("|0 Mipmap(s) inserted.|"), std::string::npos);
    const std::vector<ShownBox> refused = at.boxes.take();
    ASSERT_FALSE(refused.empty());
    EXPECT_NE(refused.back().text.find("put the archive back to " + at.path), std::string::npos);
    EXPECT_TRUE(at.folder.read("elsewhere.cdds") == torn) << "it would hide what is still to be completed";
}

TEST(ArchivesInUse, AreNeitherReadNorWrittenByAnotherCopyOfTheProgram) {
    TransferHarness h{{CddsType::TypeCdds, {chainOf("wall", "DXT1", 4, 4)}}};
    const std::string before = h.archive(),
                      told = " is being used by another copy of the program. Please try again";
    h.extract({embedded});
    for (const auto& [kind, extraction] :
         {std::pair{LockKind::Shared, "out/wall-4x4.dds overwritten.|1 file(s) "
                                      "extracted."},
          std::pair{LockKind::Exclusive, "0 file(s) extracted."}}) {
        const InputFile other{h.session.archivePath};
        ASSERT_EQ(tryLock(other.handle(), kind), LockAnswer::Held);
        EXPECT_EQ(h.extract({embedded, overwriting}), extraction);
        if (kind == LockKind::Exclusive) h.boxes.expect(told.c_str());
        EXPECT_EQ(h.insert({}), "Insertion canceled.");
        h.boxes.expect(told.c_str());
        EXPECT_EQ(row(h.archive() == before, h.files("copies")), "true, ");
    }
    {
        const FolderLock other{h.folder.file("out"), h.session.programFolder};
        EXPECT_EQ(h.insert({images}), "Insertion canceled.") << "both would build the same file";
        h.boxes.expect("out is in use by another running copy of this program. Please try again");
    }
    EXPECT_NE(h.insert({}), "Insertion canceled.") << "the other one has gone";
}

TEST(JournalRecords, AreReadBackOnlyWhole) {
    const JournalRecord record{"/a/ä.cdds",
                               "wall\x01.bmp",
                               {1, 2, 3, 4, 5, 6},
                               7,
                               0444,
                               {{8, std::vector<std::byte>(3)}, {9, {}}},
                               {{8, std::vector(3, std::byte{1})}, {9, {}}}};
    std::vector<std::byte> bytes = encodeJournal(record);
    EXPECT_EQ(decodeJournal(bytes), record);
    EXPECT_TRUE(isCutShort(Bytes{bytes}.first(0)));
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        EXPECT_TRUE(!decodeJournal(Bytes{bytes}.first(i)) && isCutShort(Bytes{bytes}.first(i))) << i;
        bytes[i] ^= std::byte{0x10};
        EXPECT_FALSE(decodeJournal(bytes) || isCutShort(bytes)) << i;
        bytes[i] ^= std::byte{0x10};
    }
}

} // namespace
} // namespace pelrath::test
