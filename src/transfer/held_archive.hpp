#pragma once

#include "archive/journal.hpp"
#include "imaging/long_work.hpp"
#include "session/session.hpp"

#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace pelrath {

/// The session's archive for one insertion: opened, locked and checked when it is first needed, and that file
/// held until this goes. What takes its place meanwhile is never read, copied, changed or written into. A
/// journal is there from before its first change on; where the program ends before finish(), the journal
/// outlives it, and the insertion is completed or given up when it is found.
class HeldArchive {
public:
    /// `longWork` shows that many bytes are read or written; null: nothing does.
    explicit HeldArchive(Session& session, LongWork* longWork = nullptr)
        : session_(session), longWork_(longWork) {}
    ~HeldArchive();
    HeldArchive(const HeldArchive&) = delete;
    HeldArchive& operator=(const HeldArchive&) = delete;

    [[nodiscard]] const Session& session() const { return session_; }

    /// Who keeps it keeps the file open, but not the lock. ArchiveRefused where it is not the file that was
    /// read, or another copy of the program uses it.
    [[nodiscard]] std::shared_ptr<const InputFile> file();
    /// The file's tables, read again. ArchiveRefused where its levels must not be overwritten: it is not, or
    /// no longer, the file that was read, its path does not lead to it any more, or it cannot be written nor
    /// made writable.
    const ArchiveContents& requireTables();

    /// To be called before the file is made writable: its permissions, to be given back, are in the journal
    /// then.
    void noteMode(FileMode before);
    /// Writes over the levels' bytes, in their order, each with one open and one write, and flushes them.
    /// Afterwards all are new, or, when it fails, all as they were: the session knows the file as it then is.
    /// Where even that fails, the failure says so, and the journal stays. ArchiveRefused as above, as far as
    /// it shows without reading.
    void overwriteLevels(const std::vector<LevelBytes>& levels);
    [[nodiscard]] std::size_t levelsWritten() const { return written_; }
    /// Runs work on so many bytes of the levels.
    void run(std::uint64_t bytes, const std::function<void()>& work);
    /// Ends the journal: nothing is left to be done, or only the permissions are still to be given back.
    void finish(bool modeIsOwed);

private:
    void overwriteAll(const std::vector<LevelBytes>& levels);
    void note();
    void overwriteOne(const LevelBytes& level);
    void putBack(std::span<const LevelBytes> old);
    void putBackOne(const LevelBytes& old);
    /// The levels are as they were, for good: from now on the journal is about the permissions alone.
    void forgetLevels();

    Session& session_;
    LongWork* longWork_;
    std::shared_ptr<const InputFile> file_;
    std::optional<Journal> journal_;
    JournalRecord record_;
    bool modeNoted_ = false;
    bool torn_ = false;
    std::size_t written_ = 0;
};

} // namespace pelrath
