#include "platform/file_mode.hpp"

#include "platform/runtime_error.hpp"

#include <cerrno>

#include <sys/stat.h>
#include <unistd.h>

namespace pelrath {

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

bool isReadOnly(FileMode mode) { return (mode & S_IWUSR) == 0; }

FileMode writable(FileMode mode) { return mode | S_IWUSR; }

} // namespace pelrath
