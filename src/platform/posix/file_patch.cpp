#include "platform/posix/file_patch.hpp"

#include "platform/posix/file_handle.hpp"
#include "platform/runtime_error.hpp"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>

namespace pelrath {

namespace {

/// False where the system refused the rest; errno says why.
bool writeAll(int file, Bytes bytes, std::uint64_t offset) {
    while (!bytes.empty()) {
        const ssize_t count = ::pwrite(file, bytes.data(), bytes.size(), static_cast<off_t>(offset));
        if (count < 0 && errno == EINTR) continue;
        if (count == 0) errno = ENOSPC;
        if (count <= 0) return false;
        offset += static_cast<std::uint64_t>(count);
        bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
    return true;
}

FileHandle openToWrite(const std::string& path) {
    return FileHandle{::open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NONBLOCK)};
}

/// Leads to the file itself, also when another has its name.
FileHandle openAgainToWrite(const InputFile& opened) {
    return openToWrite("/proc/self/fd/" + std::to_string(opened.handle()));
}

void requireInside(const InputFile& file, std::uint64_t offset, std::size_t size) {
    const std::uint64_t length = file.identity().size;
    if (offset > length || size > length - offset)
        throw makeError(ErrorNumber::InputPastEnd, "overwrite", file.path() + " is too short");
}

} // namespace

void writeInto(const std::string& path, std::uint64_t offset, Bytes bytes) {
    const FileHandle file = openToWrite(path);
    if (!file || !writeAll(file.get(), bytes, offset)) throw makeSystemError(errno, "writeInto", path);
}

void overwrite(const InputFile& opened, std::uint64_t offset, Bytes bytes) {
    requireInside(opened, offset, bytes.size());
    const FileHandle file = openAgainToWrite(opened);
    if (!file || !writeAll(file.get(), bytes, offset))
        throw makeSystemError(errno, "overwrite", opened.path());
}

// The handle that is older than the writes hears of all that the disk has refused since; some network file
// systems flush only for one that can write.
void flushOverwritten(const InputFile& opened) {
    const FileHandle file = openAgainToWrite(opened);
    if (!file || ::fsync(opened.handle()) != 0 || ::fsync(file.get()) != 0)
        throw makeSystemError(errno, "flushOverwritten", opened.path());
}

} // namespace pelrath
