#include "platform/posix/file_mode.hpp"

#include "platform/posix/file_handle.hpp"
#include "platform/runtime_error.hpp"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace pelrath {

namespace {

/// The system's error, or 0.
int openAgain(const InputFile& file, int how) {
    const std::string itself = "/proc/self/fd/" + std::to_string(file.handle());
    return FileHandle{::open(itself.c_str(), how | O_CLOEXEC | O_NONBLOCK)} ? 0 : errno;
}

/// The same. Where the permissions alone are asked, they can hide what else is in the way.
int refusalOfWriting(const InputFile& file) {
    struct statvfs place {};
    if (::fstatvfs(file.handle(), &place) == 0 && (place.f_flag & ST_RDONLY) != 0) return EROFS;
    struct statx marks {};
    constexpr std::uint64_t unchangeable = STATX_ATTR_IMMUTABLE | STATX_ATTR_APPEND;
    if (::statx(file.handle(), "", AT_EMPTY_PATH, 0, &marks) == 0 &&
        (marks.stx_attributes & unchangeable) != 0)
        return EPERM;
    return openAgain(file, O_WRONLY);
}

} // namespace

FileMode fileMode(const InputFile& file) {
    struct stat info {};
    if (::fstat(file.handle(), &info) != 0) throw makeSystemError(errno, "fileMode", file.path());
    return info.st_mode & 07777U;
}

void setFileMode(const InputFile& file, FileMode mode) {
    // A file system that keeps no permissions may have nothing to flush.
    if (::fchmod(file.handle(), mode) != 0 || (::fsync(file.handle()) != 0 && errno != EINVAL))
        throw makeSystemError(errno, "setFileMode", file.path());
}

std::string whyNotWritable(const InputFile& file) {
    switch (refusalOfWriting(file)) {
    case EROFS:
        return file.path() +
               " is on a file system that can only be read. Please open a copy of it on another";
    case EPERM:
        return file.path() + " is marked in its file system as a file that must not be changed. Please have "
                             "the mark taken away, or open a copy of the file";
    case EACCES:
        break;
    default: // whatever else is the matter shows when it is written
        return {};
    }
    // Asking not to be noted in the access time is a right of those who may change the permissions.
    if (openAgain(file, O_RDONLY | O_NOATIME) != 0) {
        return file.path() + " belongs to another user, who lets you read it only. Please ask for the "
                             "permission to write it, or open a copy of your own";
    }
    if (isReadOnly(fileMode(file))) return {};
    return file.path() + " may not be written by rules of the system beside its permissions. Please open a "
                         "copy of it in another folder";
}

bool isReadOnly(FileMode mode) { return (mode & S_IWUSR) == 0; }

FileMode writable(FileMode mode) { return mode | S_IWUSR; }

} // namespace pelrath
