#include "archive/journal.hpp"

#include "platform/posix/folder_handle.hpp"
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

/// Empty where the journal does not tell.
std::string archiveOf(const std::string& journal) try {
    const std::optional<JournalRecord> record = readJournal(journal);
    return record ? record->archivePath : std::string{};
} catch (const RuntimeError&) {
    return {};
}

[[noreturn]] void refuseBehind(const std::string& journal, const std::string& archive) {
    const auto earlier = LockedFile::find(journal);
    if (earlier && earlier->lock() == LockAnswer::Taken) {
        throw makeError(ErrorNumber::PermissionDenied, "Journal",
                        archive + " is being used by another copy of the program. Please try again when that "
                                  "is done");
    }
    const std::string former = archiveOf(journal);
    const bool moved = !former.empty() && former != archive;
    throw RuntimeError{static_cast<int>(ErrorNumber::FileExists), "Journal",
                       "an earlier insertion into " + archive + " was interrupted, and its journal " +
                           journal + " is still there. Please " +
                           (moved ? "put the archive back to " + former + ", where it was then, and " : "") +
                           "start the program again, or remove the journal to give that insertion up"};
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

Journal::Journal(std::string programFolder, const JournalRecord& record, std::string otherFolder)
    : folder_(std::move(programFolder)), otherFolder_(std::move(otherFolder)),
      path_(joinPath(folder_, nameOf(record))) {}

// The same file can have been worked on by another path.
void Journal::requireNoOther(const JournalRecord& record) const {
    for (const std::string& folder : {folder_, otherFolder_}) {
        for (const std::string& path : journalsIn(folder)) {
            const bool mayBe = fileName(path).starts_with(startOf(record.archive));
            if (mayBe && (path == path_ || !isOfAnother(path, record.archive)))
                refuseBehind(path, record.archivePath);
        }
    }
}

void Journal::note(const JournalRecord& record) {
    if (!file_) requireNoOther(record);
    if (!openFolderToRead(folder_)) throw makeSystemError(errno, "Journal", folder_); // it would not be found
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
    if (programFolder.empty()) return found;
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
    // A damaged disk can give it any length: no more is read than a journal of that beginning has.
    std::vector<std::byte> bytes(
        static_cast<std::size_t>(std::min<std::uint64_t>(file.size(), journalStartSize)));
    file.readAt(0, bytes);
    if (const auto size = journalSize(bytes)) {
        bytes.resize(static_cast<std::size_t>(std::min(file.size(), *size + 1)));
        file.readAt(0, bytes);
    }
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
