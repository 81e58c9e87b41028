#include "platform/posix/temporary_file.hpp"

#include "platform/posix/file_lock.hpp"
#include "platform/posix/files.hpp"
#include "platform/posix/folder_handle.hpp"
#include "platform/posix/unique_name.hpp"

#include <cerrno>
#include <filesystem>
#include <utility>

namespace pelrath {

namespace {

constexpr std::string_view temporaryPrefix = "~pelrath-";

} // namespace

bool TemporaryFile::isName(std::string_view name) {
    return isUniqueName(name.substr(0, name.find('.')), temporaryPrefix);
}

TemporaryFile::TemporaryFile(std::string_view extension) {
    std::error_code noFolder;
    const std::string folder = std::filesystem::temp_directory_path(noFolder);
    const std::string end = extension.empty() ? "" : "." + std::string{extension};
    for (int i = 0; !noFolder && i < uniqueNameAttempts; ++i) {
        std::string path = joinPath(folder, uniqueName(temporaryPrefix) + end);
        file_ = FileHandle{::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600)};
        if (!file_ && errno != EEXIST) return;
        // Whoever clears up may have taken it for a dead program's before it was locked.
        if (!file_ || tryLock(file_.get(), LockKind::Exclusive) == LockAnswer::Taken) continue;
        if (isGone(file_.get())) continue;
        path_ = std::move(path);
        return;
    }
}

TemporaryFile::~TemporaryFile() {
    if (!path_.empty()) ::unlink(path_.c_str());
}

void TemporaryFile::remove() {
    if (!path_.empty()) removeFile(std::exchange(path_, {}));
}

} // namespace pelrath
