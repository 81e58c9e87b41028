#include "platform/posix/locked_file.hpp"

#include "platform/posix/folder_handle.hpp"
#include "platform/posix/new_file.hpp"
#include "platform/runtime_error.hpp"

namespace pelrath {

namespace {

[[noreturn]] void fail(int error, const std::string& path) {
    throw makeSystemError(error, "LockedFile", path);
}

int writeAll(int handle, Bytes bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(handle, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return written == 0 ? EIO : errno;
        bytes = bytes.subspan(static_cast<std::size_t>(written));
    }
    return 0;
}

int fill(const NewFile& file, Bytes content) {
    if (const int error = writeAll(file.handle(), content); error != 0) return error;
    if (const int error = file.takeUsualMode(); error != 0) return error;
    if (::fsync(file.handle()) != 0) return errno;
    return file.settle();
}

int nameFreely(NewFile& file, const std::string& path) {
    const std::string name{fileName(path)};
    const int error = file.takeName(name);
    if (!NewFile::hasNoWay(error)) return error;
    // Nothing here spares what has the name already but a look at it.
    return fileExists(path) || folderExists(path) ? EEXIST : file.replace(name);
}

} // namespace

LockedFile LockedFile::make(const std::string& path, Bytes content, Naming naming) {
    NewFile file; // hidden, which is locked as well
    if (const int error = file.create(std::string{parentFolder(path)}, NewFile::Start::Hidden); error != 0) {
        fail(error == ENOENT ? ENOTDIR : error, path); // what is missing is the folder
    }
    if (const int error = fill(file, content); error != 0) fail(error, path);
    const std::string name{fileName(path)};
    const int error = naming == Naming::Free ? nameFreely(file, path) : file.replace(name);
    if (error != 0) fail(error, path);
    return {file.takeHandle(), LockAnswer::Held};
}

std::optional<LockedFile> LockedFile::find(const std::string& path) {
    FileHandle file = openToLock(AT_FDCWD, path);
    if (!file && errno == ENOENT) return std::nullopt;
    if (!file) fail(errno, path);
    const LockAnswer lock = waitForLock(file.get(), LockKind::Exclusive);
    if (lock != LockAnswer::Taken && !hasName(file.get(), AT_FDCWD, path.c_str())) return std::nullopt;
    return LockedFile{std::move(file), lock};
}

} // namespace pelrath
