#include "platform/file_mode.hpp"

#include "platform/runtime_error.hpp"

#include <cerrno>

#include <sys/stat.h>

namespace pelrath {

FileMode fileMode(const std::string& path) {
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0) throw makeSystemError(errno, "fileMode", path);
    return info.st_mode & 07777U;
}

void setFileMode(const std::string& path, FileMode mode) {
    if (::chmod(path.c_str(), mode) != 0) throw makeSystemError(errno, "setFileMode", path);
}

bool isReadOnly(FileMode mode) { return (mode & S_IWUSR) == 0; }

FileMode writable(FileMode mode) { return mode | S_IWUSR; }

} // namespace pelrath
