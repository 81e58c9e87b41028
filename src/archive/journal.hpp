#pragma once

#include "archive/journal_record.hpp"
#include "platform/posix/locked_file.hpp"

#include <optional>
#include <string>
#include <vector>

namespace pelrath {

/// The journal of insertions into one archive: a file "insertion-INODE-BIRTH-PATH.journal" in the program
/// folder, PATH being the CRC-32 of the archive's, that is there, whole and flushed, from before the first
/// byte or permission of the archive changes until all have. Whoever writes or heeds it has the archive
/// locked, and the journal itself, so that no two meet at it where but one of the two file systems has locks.
class Journal {
public:
    /// Of the archive that the record names; nothing is written yet. Journals of earlier runs can be in the
    /// other folder, too, if one is given.
    Journal(std::string programFolder, const JournalRecord& record, std::string otherFolder = {});

    /// Puts the record in the place of the last one. The first one fails where an earlier insertion into the
    /// archive, by this path or another, is still under way or has not been completed. Any fails where it
    /// cannot be on the disk, or could not be found again, and may be there all the same: remove() is to
    /// follow.
    void note(const JournalRecord& record);
    /// Takes it away, if there is one. Fails where it cannot be removed, or may come back.
    void remove();

    /// What is under way by this.
    [[nodiscard]] const std::string& path() const { return path_; }

private:
    void requireNoOther(const JournalRecord& record) const;

    std::string folder_;
    std::string otherFolder_;
    std::string path_;
    std::optional<LockedFile> file_; // the last record
};

/// The paths of all journals in the folder, sorted; none without a folder.
[[nodiscard]] std::vector<std::string> journalsIn(const std::string& programFolder);

/// Nothing where its end is missing. Fails where it is damaged, or cannot be read.
[[nodiscard]] std::optional<JournalRecord> readJournal(const std::string& path);

/// Takes a journal away, flushed. Fails as removeFile() does, and where the disk refuses the flush.
void removeJournal(const std::string& path);

} // namespace pelrath
