#include "platform/posix/leftovers.hpp"

#include "platform/posix/file_lock.hpp"
#include "platform/posix/folder_handle.hpp"
#include "platform/posix/folder_names.hpp"
#include "platform/posix/new_file.hpp"
#include "platform/posix/private_folder.hpp"
#include "platform/posix/temporary_file.hpp"

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <thread>

namespace pelrath {

namespace {

using IsOurs = bool (*)(std::string_view name);

bool isFileOfUser(int folder, const std::string& name) {
    struct stat info {};
    return ::fstatat(folder, name.c_str(), &info, AT_SYMLINK_NOFOLLOW) == 0 && S_ISREG(info.st_mode) &&
           info.st_uid == ::geteuid();
}

/// True where nobody has it locked: now it is ours.
bool isDead(int handle, int folder, const std::string& name) {
    return handle >= 0 && tryLock(handle, LockKind::Exclusive) == LockAnswer::Held &&
           hasName(handle, folder, name.c_str());
}

void removeDeadFiles(int folder, IsOurs isOurs) {
    for (const std::string& name : namesIn(folder, isOurs)) {
        if (!isFileOfUser(folder, name)) continue;
        const FileHandle file = openToLock(folder, name);
        if (isDead(file.get(), folder, name)) ::unlinkat(folder, name.c_str(), 0);
    }
}

void removeDeadFolders(int folder) {
    for (const std::string& name : namesIn(folder, isPrivateFolderName)) {
        const FileHandle dead{
            ::openat(folder, name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC)};
        struct stat info {};
        const bool ofUser = dead && ::fstat(dead.get(), &info) == 0 && info.st_uid == ::geteuid() &&
                            (info.st_mode & 0777U) == 0700U;
        if (!ofUser || !isDead(dead.get(), folder, name)) continue;
        removeDeadFiles(dead.get(), isHiddenName);
        // Where anything else is in it, it stays.
        if (emptyPrivateFolder(dead.get()) == 0) ::unlinkat(folder, name.c_str(), AT_REMOVEDIR);
    }
}

std::string_view withoutNumber(std::string_view text) {
    const std::size_t last = text.find_last_not_of("0123456789");
    return text.substr(0, last + 1);
}

// As an insertion names it after its image.
bool isBuiltName(std::string_view name) {
    if (!name.ends_with(builtFileEnd)) return false;
    const std::string_view image = name.substr(0, name.size() - builtFileEnd.size());
    const std::string_view width = withoutNumber(image);
    if (width.size() == image.size() || !width.ends_with('x')) return false;
    const std::string_view texture = withoutNumber(width.substr(0, width.size() - 1));
    return texture.size() + 1 < width.size() && texture.ends_with('-');
}

void removeBuiltFile(int folder, const std::string& name) {
    if (isFileOfUser(folder, name)) ::unlinkat(folder, name.c_str(), 0);
}

void clearFolder(const std::string& path) {
    const FileHandle folder = openFolderToRead(path);
    if (!folder) return;
    removeDeadFiles(folder.get(), isHiddenName);
    for (const std::string& name : namesIn(folder.get(), isBuiltName)) {
        // Not for longer than one file takes: an insertion that begins meanwhile waits for the lock.
        if (tryLock(folder.get(), LockKind::Exclusive) != LockAnswer::Held) return;
        removeBuiltFile(folder.get(), name);
        releaseLock(folder.get());
    }
}

} // namespace

void removeHiddenLeftovers(const std::string& folder) {
    if (const FileHandle opened = openFolderToRead(folder)) removeDeadFiles(opened.get(), isHiddenName);
}

void removeBuiltLeftovers(const FolderLock& folder) {
    if (!folder.isCertain()) return;
    for (const std::string& name : namesIn(folder.handle(), isBuiltName)) {
        removeBuiltFile(folder.handle(), name);
    }
}

void removeTemporaryLeftovers() {
    std::error_code none;
    const FileHandle folder = openFolderToRead(std::filesystem::temp_directory_path(none).string());
    if (none || !folder) return;
    removeDeadFiles(folder.get(), TemporaryFile::isName);
    removeDeadFolders(folder.get());
}

void removeLeftoversLater(const std::vector<std::string>& folders) {
    for (const std::string& folder : folders) {
        if (folder.empty()) continue;
        try {
            std::thread{clearFolder, folder}.detach();
        } catch (const std::system_error&) { // no thread is to be had: the next start does it
        }
    }
}

} // namespace pelrath
