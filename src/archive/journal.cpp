#include "archive/journal.hpp"

#include "platform/runtime_error.hpp"

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string_view>

namespace pelrath {

namespace {

constexpr std::string_view prefix = "insertion-";
constexpr std::string_view suffix = ".journal";

std::string nameOf(const JournalRecord& record) {
    std::ostringstream name;
    name << prefix << record.archive.inode << '-' << record.archive.born << '-' << std::hex
         << pathChecksum(record.archivePath) << suffix;
    return name.str();
}

} // namespace

Journal::Journal(const std::string& programFolder, const JournalRecord& record)
    : path_(joinPath(programFolder, nameOf(record))) {}

void Journal::note(const JournalRecord& record) try {
    const std::vector<std::byte> bytes = encodeJournal(record);
    const auto naming = file_ ? LockedFile::Naming::Replacing : LockedFile::Naming::Free;
    file_ = LockedFile::make(path_, bytes, naming);
} catch (const RuntimeError& error) {
    if (error.number() != static_cast<int>(ErrorNumber::FileExists)) throw;
    throw RuntimeError{error.number(), "Journal",
                       "an earlier insertion into " + record.archivePath +
                           " was interrupted and has not been completed. Please start the program again, "
                           "or remove " +
                           path_ + " to give that insertion up"};
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

void removeJournal(const std::string& path) {
    removeFile(path);
    if (!flushFolderOf(path)) throw makeError(ErrorNumber::DeviceIoError, "Journal", path);
}

} // namespace pelrath
