#pragma once

#include "platform/posix/file_handle.hpp"

#include <cerrno>
#include <memory>
#include <string>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

/// Opened folders: what is done in one is done in that very folder, whatever its name is by now.
namespace pelrath {

/// For names in it alone, which asks for no permission to read. -1 where there is no such folder; errno says
/// why.
[[nodiscard]] inline FileHandle openFolder(const std::string& path) {
    return FileHandle{::open(path.empty() ? "." : path.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC)};
}

/// To be read, locked and flushed as well.
[[nodiscard]] inline FileHandle openFolderToRead(const std::string& path) {
    return FileHandle{::open(path.empty() ? "." : path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)};
}

/// A file in it to be locked: where that can be, opened to be written, which locks over a network ask for.
[[nodiscard]] inline FileHandle openToLock(int folder, const std::string& name) {
    constexpr int flags = O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
    FileHandle file{::openat(folder, name.c_str(), O_RDWR | flags)};
    return file ? std::move(file) : FileHandle{::openat(folder, name.c_str(), O_RDONLY | flags)};
}

struct CloseFolder {
    void operator()(DIR* folder) const { ::closedir(folder); }
};
/// A folder whose names are being read.
using FolderReading = std::unique_ptr<DIR, CloseFolder>;

/// True for a file or folder that has no name any more.
[[nodiscard]] inline bool isGone(int handle) {
    struct stat info {};
    return ::fstat(handle, &info) == 0 && info.st_nlink == 0;
}

/// True where both have opened one and the same file or folder.
[[nodiscard]] inline bool isSame(const struct stat& a, const struct stat& b) {
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

/// True where `name` in the folder is still that of what `handle` has opened.
[[nodiscard]] inline bool hasName(int handle, int folder, const char* name) {
    struct stat opened {};
    struct stat named {};
    return ::fstat(handle, &opened) == 0 && ::fstatat(folder, name, &named, AT_SYMLINK_NOFOLLOW) == 0 &&
           isSame(opened, named);
}

/// True for the errors (errno) that say that a file system, or what watches over it, has no such flush; 0 is
/// none of them. Any other may be what the disk has refused.
[[nodiscard]] inline bool isNoFlush(int error) {
    return error == EINVAL || error == ENOSYS || error == EOPNOTSUPP || error == EPERM || error == ESPIPE;
}

/// Makes the changes of names in it last, where the file system lets that be asked for. False when the disk
/// refused it. What could not be opened to be read is not ours to settle.
[[nodiscard]] inline bool flushFolder(const FileHandle& folder) {
    if (!folder) return true;
    while (::fsync(folder.get()) != 0) {
        if (errno != EINTR) return isNoFlush(errno);
    }
    return true;
}

} // namespace pelrath
