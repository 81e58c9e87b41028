#include "platform/posix/private_folder.hpp"

#include "platform/posix/file_lock.hpp"
#include "platform/posix/files.hpp"
#include "platform/posix/folder_handle.hpp"
#include "platform/posix/folder_names.hpp"
#include "platform/posix/unique_name.hpp"

#include <cerrno>
#include <filesystem>
#include <utility>

namespace pelrath {

namespace {

constexpr std::string_view folderPrefix = "pelrath-";

bool isPicture(std::string_view name) { return name.ends_with(".png"); }

} // namespace

bool isPrivateFolderName(std::string_view name) { return isUniqueName(name, folderPrefix); }

int emptyPrivateFolder(int folder) {
    for (const char* name : temporaryNames) {
        if (::unlinkat(folder, name, 0) != 0 && errno != ENOENT) return errno;
    }
    for (const std::string& picture : namesIn(folder, isPicture)) {
        if (::unlinkat(folder, picture.c_str(), 0) != 0 && errno != ENOENT) return errno;
    }
    return 0;
}

const std::string& PrivateFolder::path() {
    if (!isThere()) make();
    return path_;
}

// What is cleared away during a long run can come back as somebody else's.
bool PrivateFolder::isThere() const {
    struct stat found {};
    return !path_.empty() && ::lstat(path_.c_str(), &found) == 0 && found.st_uid == ::geteuid() &&
           hasName(folder_.get(), AT_FDCWD, path_.c_str());
}

void PrivateFolder::make() {
    path_.clear();
    std::error_code none;
    const std::string temporary = std::filesystem::temp_directory_path(none).string();
    for (int i = 0; !none && i < uniqueNameAttempts; ++i) {
        std::string path = joinPath(temporary, uniqueName(folderPrefix));
        if (::mkdir(path.c_str(), 0700) != 0 && errno == EEXIST) continue;
        folder_ = openFolderToRead(path);
        if (!folder_) return;
        // Whoever clears up may have come first: then it is no more.
        const bool taken = tryLock(folder_.get(), LockKind::Exclusive) == LockAnswer::Taken;
        if (taken || !hasName(folder_.get(), AT_FDCWD, path.c_str())) continue;
        path_ = std::move(path);
        return;
    }
}

int PrivateFolder::remove() {
    if (path_.empty() || !isThere()) return 0;
    if (const int error = emptyPrivateFolder(folder_.get()); error != 0) return error;
    if (::rmdir(path_.c_str()) != 0) return errno;
    path_.clear();
    folder_.close();
    return 0;
}

} // namespace pelrath
