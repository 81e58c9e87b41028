#include "archive/recovery.hpp"

#include "archive/journal.hpp"
#include "archive/reader.hpp"
#include "platform/posix/file_mode.hpp"
#include "platform/posix/file_patch.hpp"
#include "platform/posix/locked_file.hpp"
#include "platform/runtime_error.hpp"

#include <algorithm>
#include <optional>

namespace pelrath {

namespace {

using Outcome = RecoveredInsertion::Outcome;

/// The archive is not, or no longer, the one that the journal is of.
class OtherArchive : public std::exception {};

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
// start of the system, and so can inodes where the file system has none of its own; the time of birth says
// enough then.
bool isSameFile(const FileIdentity& now, const FileIdentity& before) {
    return now.size == before.size && now.born == before.born && (now.born != 0 || now.inode == before.inode);
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

/// What stands in the places of the levels.
class Remains {
public:
    Remains(const InputFile& archive, const JournalRecord& record) : record_(record) {
        for (const LevelBytes& level : record.old) {
            read(archive, level);
        }
    }

    [[nodiscard]] bool areAllOld() const { return found_ == record_.old; }
    /// True where each byte is an old one or a new one.
    [[nodiscard]] bool areOfInsertion() const {
        for (const LevelBytes& level : found_) {
            for (std::size_t i = 0; i < level.data.size(); ++i) {
                if (!isKnown(level.dataOffset + static_cast<std::int64_t>(i), level.data[i])) return false;
            }
        }
        return true;
    }

private:
    // What cannot be read was torn inside one of the disk's sectors: writing over it mends that.
    void read(const InputFile& archive, LevelBytes level) try {
        archive.readAt(static_cast<std::uint64_t>(level.dataOffset), level.data);
        found_.push_back(std::move(level));
    } catch (const RuntimeError& error) {
        if (error.number() != static_cast<int>(ErrorNumber::DeviceIoError)) throw;
    }
    [[nodiscard]] bool isKnown(std::int64_t at, std::byte value) const {
        return has(record_.levels, at, value) || has(record_.old, at, value);
    }
    // Levels may share bytes.
    static bool has(const std::vector<LevelBytes>& levels, std::int64_t at, std::byte value) {
        return std::any_of(levels.begin(), levels.end(), [&](const LevelBytes& level) {
            const std::int64_t i = at - level.dataOffset;
            return i >= 0 && i < static_cast<std::int64_t>(level.data.size()) &&
                   level.data[static_cast<std::size_t>(i)] == value;
        });
    }

    const JournalRecord& record_;
    std::vector<LevelBytes> found_;
};

/// Gives the archive the bytes and the permissions that it was to have.
class Completion {
public:
    Completion(const InputFile& archive, const JournalRecord& record)
        : archive_(archive), record_(record), before_(fileMode(archive)) {}

    void writeAll(const std::vector<LevelBytes>& levels) {
        if (!levels.empty()) write(levels);
    }
    /// True when permissions that had been changed are back.
    bool giveModeBack() {
        const bool changed = isReadOnly(record_.mode) && before_ == writable(record_.mode);
        if (changed) setFileMode(archive_, record_.mode);
        return changed;
    }

private:
    void write(const std::vector<LevelBytes>& levels) {
        if (!isReadOnly(before_)) {
            writeEach(levels);
            return;
        }
        try {
            setFileMode(archive_, writable(before_));
            writeEach(levels);
        } catch (...) {
            lockAgain();
            throw;
        }
        setFileMode(archive_, before_);
    }

    void writeEach(const std::vector<LevelBytes>& levels) {
        for (const LevelBytes& level : levels) {
            overwrite(archive_, static_cast<std::uint64_t>(level.dataOffset), level.data);
        }
        flushOverwritten(archive_);
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
        const std::optional<LockedFile> journal = LockedFile::find(found_.journal);
        if (!journal || journal->lock() == LockAnswer::Taken || !read()) return std::nullopt;
        const InputFile archive{record_.archivePath};
        const LockAnswer lock = waitForLock(archive.handle(), LockKind::Exclusive);
        if (lock == LockAnswer::Taken) return std::nullopt;
        if (lock == LockAnswer::Unknown && journal->lock() == LockAnswer::Unknown) {
            return kept(
                "neither its folder nor that of the archive has locks, by which it would show whether "
                "another copy of the program is still at it");
        }
        settle(archive);
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

    void settle(const InputFile& archive) {
        try {
            requireThatOne(archive, record_);
            complete(archive);
        } catch (const OtherArchive&) {
            if (!record_.levels.empty()) {
                found_.reason = record_.archivePath + " is another file now, or has been changed";
                giveModeBack(archive);
                return;
            }
            finish(Outcome::NothingWritten); // and its permissions are none of ours
        } catch (const RuntimeError&) {
            giveModeBack(archive);
            throw;
        }
    }

    /// What is kept can be completed read-only as well. Another file's permissions are none of ours.
    void giveModeBack(const InputFile& archive) {
        if (!isSameFile(archive.identity(), record_.archive)) return;
        try {
            found_.readOnlyAgain = Completion{archive, record_}.giveModeBack();
        } catch (const RuntimeError&) { // what failed first is what is told
        }
    }

    void complete(const InputFile& archive) {
        const bool asIs = record_.levels.empty() || isAsBefore(archive);
        Completion completion{archive, record_};
        // The old bytes, too: what a disk has refused still looks written to whoever reads it.
        completion.writeAll(asIs ? record_.old : record_.levels);
        found_.readOnlyAgain = completion.giveModeBack();
        found_.archive = archive.identity();
        found_.tables = record_.tables;
        finish(asIs ? Outcome::NothingWritten : Outcome::Completed);
    }

    /// True where somebody has put the old bytes back.
    bool isAsBefore(const InputFile& archive) {
        const Remains remains{archive, record_};
        if (!remains.areOfInsertion()) throw OtherArchive{};
        const bool touched = archive.identity().statusChanged != record_.archive.statusChanged;
        return touched && remains.areAllOld() && record_.old != record_.levels;
    }

    // One that comes back after a power cut is heeded again, which changes nothing any more.
    void finish(Outcome outcome) {
        found_.outcome = outcome;
        try {
            removeJournal(found_.journal);
        } catch (const RuntimeError& error) {
            if (fileExists(found_.journal)) found_.reason = error.description();
        }
    }

    RecoveredInsertion kept(const std::string& reason) {
        found_.outcome = Outcome::Kept;
        found_.reason = reason;
        return found_;
    }

    RecoveredInsertion found_;
    JournalRecord record_;
};

bool isLeftOf(const std::string& journal, const JournalRecord& record, const InputFile& archive) {
    if (record.levels.empty() || !isSameFile(archive.identity(), record.archive)) return false;
    const std::optional<LockedFile> left = LockedFile::find(journal);
    return left && left->lock() != LockAnswer::Taken;
}

} // namespace

std::vector<std::string> interruptedInsertions(const std::string& programFolder, const InputFile& archive) {
    std::vector<std::string> textures;
    for (const std::string& path : journalsIn(programFolder)) {
        try {
            const std::optional<JournalRecord> record = readJournal(path);
            if (record && isLeftOf(path, *record, archive)) textures.push_back(record->textureName);
        } catch (const std::exception&) { // told by whoever is to complete it
        }
    }
    return textures;
}

std::vector<RecoveredInsertion> recoverInsertions(const std::string& programFolder) {
    std::vector<RecoveredInsertion> recovered;
    for (const std::string& path : journalsIn(programFolder)) {
        if (const auto one = Recovery{path}.run()) recovered.push_back(*one);
    }
    return recovered;
}

} // namespace pelrath
