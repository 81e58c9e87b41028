#pragma once

#include "archive/journal_record.hpp"

#include <string>
#include <vector>

namespace pelrath {

/// The journal of insertions into one archive: a file "insertion-INODE-BIRTH.journal" in the program folder
/// that is there, whole and flushed, from before the first byte or permission of the archive changes until
/// all have. Whoever writes or heeds it has the archive locked, so that no two meet at it.
class Journal {
public:
    Journal(const std::string& programFolder, const FileIdentity& archive);

    /// Puts the record in the place of the last one. The first one fails where an earlier insertion into the
    /// archive has still not been completed; any fails as replaceFile() does, and then the last one stays.
    void note(const JournalRecord& record);
    /// Takes it away, if there is one. Fails where it cannot be removed, or may come back.
    void remove();

    /// What is under way by this.
    [[nodiscard]] const std::string& path() const { return path_; }

private:
    std::string path_;
    bool noted_ = false;
};

/// The paths of all journals in the folder, sorted.
[[nodiscard]] std::vector<std::string> journalsIn(const std::string& programFolder);

/// Takes a journal away, flushed. Fails as removeFile() does, and where the disk refuses the flush.
void removeJournal(const std::string& path);

} // namespace pelrath
