#include "archive/journal.hpp"

#include "platform/runtime_error.hpp"

#include <algorithm>
#include <array>
#include <filesystem>
#include <string_view>

namespace pelrath {

namespace {

constexpr std::string_view prefix = "insertion-";
constexpr std::string_view suffix = ".journal";

void flushNameOf(const std::string& path) {
    if (!flushFolderOf(path)) throw makeError(ErrorNumber::DeviceIoError, "Journal", path);
}

} // namespace

Journal::Journal(const std::string& programFolder, const FileIdentity& archive)
    : path_(joinPath(programFolder, std::string{prefix} + std::to_string(archive.inode) + "-" +
                                        std::to_string(archive.born) + std::string{suffix})) {}

void Journal::note(const JournalRecord& record) {
    if (!noted_ && (fileExists(path_) || folderExists(path_))) {
        throw RuntimeError{static_cast<int>(ErrorNumber::FileExists), "Journal",
                           "an earlier insertion into " + record.archivePath +
                               " was interrupted and has not been completed. Please start the program again, "
                               "or remove " +
                               path_ + " to give that insertion up"};
    }
    const std::vector<std::byte> bytes = encodeJournal(record);
    const std::array<Bytes, 1> pieces{Bytes{bytes}};
    replaceFile(path_, pieces, Durability::Flushed);
    noted_ = true;
    flushNameOf(path_);
}

void Journal::remove() {
    if (!noted_) return;
    removeJournal(path_);
    noted_ = false;
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
    flushNameOf(path);
}

} // namespace pelrath
