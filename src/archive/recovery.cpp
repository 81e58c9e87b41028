#include "archive/recovery.hpp"

#include "archive/journal.hpp"
#include "archive/reader.hpp"
#include "platform/file_lock.hpp"
#include "platform/file_mode.hpp"
#include "platform/file_patch.hpp"
#include "platform/runtime_error.hpp"

#include <algorithm>
#include <optional>

namespace pelrath {

namespace {

using Outcome = RecoveredInsertion::Outcome;

/// The archive is not, or no longer, the one that the journal is of.
class OtherArchive : public std::exception {};

/// Nothing where its end is missing.
std::optional<JournalRecord> readJournal(const std::string& path) {
    const InputFile file{path};
    std::vector<std::byte> bytes(static_cast<std::size_t>(file.size()));
    file.readAt(0, bytes);
    std::optional<JournalRecord> record = decodeJournal(bytes);
    // It was whole before anything was written, so that the archive may be torn.
    if (!record && !isCutShort(bytes)) {
        throw RuntimeError{static_cast<int>(ErrorNumber::PathFileAccess), "readJournal",
                           "its journal is damaged, or was written by another version of the program"};
    }
    return record;
}

bool isOf(const CddsArchive& catalogue, const LevelBytes& level) {
    const auto same = [&](const MipmapRecord& record) {
        return record.dataOffset == level.dataOffset &&
               static_cast<std::size_t>(record.dataSize) == level.data.size();
    };
    return std::any_of(catalogue.textures.begin(), catalogue.textures.end(),
                       [&](const TextureRecord& texture) {
                           return std::any_of(texture.mipmaps.begin(), texture.mipmaps.end(), same);
                       });
}

// Its time of change is of no use: the insertion itself has written. A disk's number can be another at each
// start of the system.
bool isSameFile(const FileIdentity& now, const FileIdentity& before) {
    return now.inode == before.inode && now.size == before.size && now.born == before.born;
}

void requireThatOne(const InputFile& archive, const JournalRecord& record) try {
    if (!isSameFile(archive.identity(), record.archive)) throw OtherArchive{};
    const CddsArchive catalogue = makeCatalogue(readArchive(archive));
    if (tablesChecksum(catalogue) != record.tables) throw OtherArchive{};
    for (const LevelBytes& level : record.levels) {
        if (!isOf(catalogue, level)) throw OtherArchive{};
    }
} catch (const DamagedArchive&) {
    throw OtherArchive{};
}

/// Gives the archive the bytes and the permissions that it was to have.
class Completion {
public:
    Completion(const InputFile& archive, const JournalRecord& record)
        : archive_(archive), record_(record), before_(fileMode(archive)) {}

    /// True when permissions that had been changed are back.
    bool run() {
        if (!record_.levels.empty()) write();
        const bool changed = isReadOnly(record_.mode) && before_ == writable(record_.mode);
        if (changed) setFileMode(archive_, record_.mode);
        return changed;
    }

private:
    void write() {
        if (!isReadOnly(before_)) {
            writeLevels();
            return;
        }
        try {
            setFileMode(archive_, writable(before_));
            writeLevels();
        } catch (...) {
            lockAgain();
            throw;
        }
        setFileMode(archive_, before_);
    }

    void writeLevels() {
        for (const LevelBytes& level : record_.levels) {
            overwrite(archive_, static_cast<std::uint64_t>(level.dataOffset), level.data);
        }
    }

    void lockAgain() const {
        try {
            setFileMode(archive_, before_);
        } catch (const RuntimeError&) { // what failed first is what is told
        }
    }

    const InputFile& archive_;
    const JournalRecord& record_;
    FileMode before_;
};

/// One journal. Answers nothing where there is nothing to tell.
class Recovery {
public:
    explicit Recovery(const std::string& path) { found_.journal = path; }

    std::optional<RecoveredInsertion> run() try {
        if (!read()) return std::nullopt;
        const InputFile archive{record_.archivePath};
        const LockAnswer lock = waitForLock(archive.handle(), LockKind::Exclusive);
        if (lock == LockAnswer::Taken) return std::nullopt;
        // Whoever had the lock before may have completed it, or begun another.
        if (!fileExists(found_.journal) || !read()) return std::nullopt;
        complete(archive);
        return found_;
    } catch (const RuntimeError& error) {
        return kept(error.description());
    } catch (const std::exception&) {
        return kept("it needs more memory than there is");
    }

private:
    /// False where there is no record, and by now no file either.
    bool read() {
        const std::optional<JournalRecord> record = readJournal(found_.journal);
        if (!record) {
            removeJournal(found_.journal);
            return false;
        }
        record_ = *record;
        found_.archivePath = record_.archivePath;
        found_.textureName = record_.textureName;
        found_.levels = record_.levels.size();
        return true;
    }

    void complete(const InputFile& archive) {
        try {
            requireThatOne(archive, record_);
        } catch (const OtherArchive&) {
            if (!record_.levels.empty()) {
                found_.reason = record_.archivePath + " is another file now, or has been changed";
                return;
            }
            finish(Outcome::NothingWritten); // and its permissions are none of ours
            return;
        }
        found_.readOnlyAgain = Completion{archive, record_}.run();
        finish(record_.levels.empty() ? Outcome::NothingWritten : Outcome::Completed);
    }

    void finish(Outcome outcome) {
        removeJournal(found_.journal);
        found_.outcome = outcome;
    }

    RecoveredInsertion kept(const std::string& reason) {
        found_.outcome = Outcome::Kept;
        found_.reason = reason;
        return found_;
    }

    RecoveredInsertion found_;
    JournalRecord record_;
};

} // namespace

std::vector<RecoveredInsertion> recoverInsertions(const std::string& programFolder) {
    std::vector<RecoveredInsertion> recovered;
    for (const std::string& path : journalsIn(programFolder)) {
        if (const auto one = Recovery{path}.run()) recovered.push_back(*one);
    }
    return recovered;
}

} // namespace pelrath
