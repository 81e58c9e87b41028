#pragma once

#include "archive/reader.hpp"
#include "platform/posix/file_lock.hpp"
#include "platform/posix/files.hpp"
#include "platform/runtime_error.hpp"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace pelrath {

/// The archive must not be used. The description, without its last full stop, names the file and says what is
/// the matter with it and what to do.
class ArchiveRefused : public RuntimeError {
public:
    using RuntimeError::RuntimeError;
};

/// The file that the catalogue in use was read from, known by device, inode, size, time of change and its
/// tables. Whoever reads or overwrites a level gets the file here, so that no other file's bytes, and none
/// that the catalogue does not describe, are taken for the archive's.
/// `chosen` is the archive's path as the user chose it last; both it and the catalogue are the session's.
class ArchiveFile {
public:
    /// No file: every use is refused.
    ArchiveFile() = default;
    /// The file as it is now. Its tables are to be read behind this, from the same `file`.
    explicit ArchiveFile(const InputFile& file);

    /// Opens the file to read levels from it, or to write into them, locked accordingly for as long as it is
    /// open. Its tables are compared only where it may have changed since they were last. Throws
    /// ArchiveRefused, also where another copy of the program has it locked, and RuntimeError where it cannot
    /// be opened or read.
    [[nodiscard]] InputFile open(const std::string& chosen, const CddsArchive& catalogue,
                                 LockKind lock = LockKind::Shared) const;

    /// The tables of the opened file, read again and compared: its levels may be overwritten. Throws as
    /// open(), also where its path leads to another file by now. They stay until the next comparison.
    const ArchiveContents& requireTables(const InputFile& file, const CddsArchive& catalogue) const;
    /// open() to write for whoever calls requireTables() next: one reading does for both.
    [[nodiscard]] InputFile openUnread(const std::string& chosen) const {
        return openLocked(chosen, LockKind::Exclusive);
    }
    /// The same as far as it shows without reading.
    void requireInPlace(const InputFile& file) const;

    /// The program itself has written into a level of the opened file, or tried to.
    void bringUpToDate(const InputFile& file);

    /// The program has completed an insertion into a file of such tables, or undone it, which is now like
    /// this. Where that is this file, with this catalogue, it is not taken for another's change.
    void heedCompletion(const FileIdentity& now, std::uint32_t tables, const CddsArchive& catalogue);

    [[nodiscard]] const std::string& path() const { return path_; }
    /// tablesChecksum() of the catalogue, reckoned once for the tables that were last compared with it.
    [[nodiscard]] std::uint32_t checksumOf(const CddsArchive& catalogue) const;

private:
    [[nodiscard]] InputFile openLocked(const std::string& chosen, LockKind lock) const;
    void requireSameState(const FileIdentity& now) const;
    const ArchiveContents& compareTables(const InputFile& file, const FileIdentity& now,
                                         const CddsArchive& catalogue) const;

    std::string path_;
    FileIdentity known_;
    /// The status change behind which the tables were last compared; one that never was: they must be again.
    mutable std::int64_t comparedAt_ = -1;
    /// The tables that were last found to be the catalogue's, none before the first time. Where they are read
    /// again, the very same need no second catalogue to be compared by.
    mutable std::shared_ptr<const ArchiveContents> comparedTables_;
    mutable std::optional<std::uint32_t> checksum_; ///< of those
};

} // namespace pelrath
