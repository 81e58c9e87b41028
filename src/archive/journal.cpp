#include "archive/journal.hpp"

#include "platform/runtime_error.hpp"

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string_view>
#include <utility>

namespace pelrath {

namespace {

constexpr std::string_view prefix = "insertion-";
constexpr std::string_view suffix = ".journal";

/// What all journals of the file have in common, whatever path it was found by.
std::string startOf(const FileIdentity& archive) {
    return std::string{prefix} + std::to_string(archive.inode) + '-' + std::to_string(archive.born) + '-';
}

std::string nameOf(const JournalRecord& record) {
    std::ostringstream name;
    name << startOf(record.archive) << std::hex << pathChecksum(record.archivePath) << suffix;
    return name.str();
}

[[noreturn]] void refuseBehind(const std::string& journal, const std::string& archive) {
    const auto earlier = LockedFile::find(journal);
    if (earlier && earlier->lock() == LockAnswer::Taken) {
        throw makeError(ErrorNumber::PermissionDenied, "Journal",
                        archive + " is being used by another copy of the program. Please try again when that "
                                  "is done");
    }
    throw RuntimeError{static_cast<int>(ErrorNumber::FileExists), "Journal",
                       "an earlier insertion into " + archive +
                           " was interrupted and has not been completed. Please start the program again, "
                           "or remove " +
                           journal + " to give that insertion up"};
}

/// True for the journal of a file that only has the same numbers, as those on a disk that was cloned have.
bool isOfAnother(const std::string& journal, const FileIdentity& archive) try {
    const std::optional<JournalRecord> record = readJournal(journal);
    const auto found = record ? identityOf(record->archivePath) : std::nullopt;
    return !record || (found && !found->sameFile(archive));
} catch (const RuntimeError&) {
    return false;
}

} // namespace

Journal::Journal(std::string programFolder, const JournalRecord& record)
    : folder_(std::move(programFolder)), path_(joinPath(folder_, nameOf(record))) {}

// The same file can have been worked on by another path.
void Journal::requireNoOther(const JournalRecord& record) const {
    for (const std::string& path : journalsIn(folder_)) {
        const bool mayBe = fileName(path).starts_with(startOf(record.archive));
        if (mayBe && (path == path_ || !isOfAnother(path, record.archive)))
            refuseBehind(path, record.archivePath);
    }
}

void Journal::note(const JournalRecord& record) {
    if (!file_) requireNoOther(record);
    const std::vector<std::byte> bytes = encodeJournal(record);
    const auto naming = file_ ? LockedFile::Naming::Replacing : LockedFile::Naming::Free;
    file_ = LockedFile::make(path_, bytes, naming);
    if (!flushFolderOf(path_)) throw makeError(ErrorNumber::DeviceIoError, "Journal", path_);
}

void Journal::remove() {
    if (!file_) return;
    removeJournal(path_);
    file_.reset();
}

std::vector<std::string> journalsIn(const std::string& programFolder) {
    std::vector<std::string> found;
    std::error_code none;
    for (std::filesystem::directory_iterator entry{programFolder, none}, end; !none && entry != end;
         entry.increment(none)) {
        const std::string name = entry->path().filename().string();
        if (name.starts_with(prefix) && name.ends_with(suffix)) found.push_back(entry->path().string());
    }
    std::sort(found.begin(), found.end());
    return found;
}

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

void removeJournal(const std::string& path) {
    removeFile(path);
    if (!flushFolderOf(path)) throw makeError(ErrorNumber::DeviceIoError, "Journal", path);
}

} // namespace pelrath
