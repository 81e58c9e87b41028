#include "platform/file_copy.hpp"

#include "platform/runtime_error.hpp"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>

namespace pelrath {

namespace {

constexpr std::uint64_t partSize = std::uint64_t{32} << 20;
constexpr std::uint64_t memorySize = std::uint64_t{1} << 20;

[[noreturn]] void fail(int systemError, const std::string& path) {
    throw makeSystemError(systemError, "FileCopy", path);
}

struct stat infoOf(int handle, const std::string& path) {
    struct stat info {};
    if (::fstat(handle, &info) != 0) fail(errno, path);
    return info;
}

/// Copies from one position to the same one; the source ends before `until` only if it has been cut.
class Copying {
public:
    Copying(int from, int to) : from_(from), to_(to) {}

    /// The system's error, or 0.
    int upTo(std::uint64_t until) {
        while (done_ < until) {
            const ssize_t count = kernelCopies_ ? inKernel(until - done_) : throughMemory(until - done_);
            if (count > 0) {
                done_ += static_cast<std::uint64_t>(count);
            } else if (kernelCopies_) {
                kernelCopies_ = false; // not between these two; what really is wrong shows in the other way
            } else if (count == 0 || errno != EINTR) {
                return count == 0 ? EIO : errno;
            }
        }
        return 0;
    }

private:
    [[nodiscard]] ssize_t inKernel(std::uint64_t count) const {
        auto in = static_cast<off_t>(done_);
        off_t out = in;
        return ::copy_file_range(from_, &in, to_, &out, count, 0);
    }
    ssize_t throughMemory(std::uint64_t count) {
        memory_.resize(memorySize);
        const auto at = static_cast<off_t>(done_);
        const ssize_t got = ::pread(from_, memory_.data(), std::min<std::uint64_t>(count, memorySize), at);
        return got <= 0 ? got : ::pwrite(to_, memory_.data(), static_cast<std::size_t>(got), at);
    }

    int from_;
    int to_;
    std::uint64_t done_ = 0;
    bool kernelCopies_ = true;
    std::vector<std::byte> memory_;
};

/// Starts writing what was copied last to the disk and waits for what was copied before, so that the flush at
/// the end is no long wait. The system's error, or 0; a file system that cannot do so leaves all to the end.
int flushBefore(int file, std::uint64_t done) {
    const auto part = static_cast<off_t>(partSize);
    const off_t last = static_cast<off_t>(done) - part;
    (void)::sync_file_range(file, std::max<off_t>(last, 0), part, SYNC_FILE_RANGE_WRITE);
    constexpr unsigned untilWritten =
        SYNC_FILE_RANGE_WAIT_BEFORE | SYNC_FILE_RANGE_WRITE | SYNC_FILE_RANGE_WAIT_AFTER;
    if (last < part || ::sync_file_range(file, last - part, part, untilWritten) == 0) return 0;
    return errno == EIO || errno == ENOSPC || errno == EDQUOT ? errno : 0;
}

} // namespace

FileCopy::FileCopy(const InputFile& source, const std::string& folder, const Progress& progress) {
    const int from = source.handle();
    const struct stat info = infoOf(from, source.path());
    create(folder);
    const auto size = static_cast<std::uint64_t>(info.st_size);
    progress(0, size);
    if (::ioctl(copy_.get(), FICLONE, from) != 0) {
        Copying copying{from, copy_.get()};
        for (std::uint64_t done = 0; done < size;) {
            done = std::min(done + partSize, size);
            int error = copying.upTo(done);
            if (error == 0) error = flushBefore(copy_.get(), done);
            if (error != 0) fail(error, folder);
            progress(done, size);
        }
    }
    // A file system without permissions keeps none.
    if (::fchmod(copy_.get(), info.st_mode & 0777U) != 0 && errno != EPERM) fail(errno, folder);
    if (::fsync(copy_.get()) != 0) fail(errno, folder);
    const bool sourceIsSame = infoOf(from, source.path()).st_size == info.st_size;
    if (!sourceIsSame || infoOf(copy_.get(), folder).st_size != info.st_size) fail(EIO, source.path());
}

FileCopy::HiddenName::~HiddenName() {
    if (!path.empty()) ::unlink(path.c_str());
}

void FileCopy::create(const std::string& folder) {
    copy_ = FileHandle{::open(folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0600)};
    if (copy_) return;
    hidden_.path = joinPath(folder, ".pelrath-XXXXXX");
    copy_ = FileHandle{::mkostemp(hidden_.path.data(), O_CLOEXEC)};
    if (copy_) return;
    hidden_.path.clear();
    fail(errno, folder);
}

bool FileCopy::takeName(const std::string& path) {
    if (!(hidden_.path.empty() ? link(path) : rename(path))) return false;
    if (flushFolderOf(path)) return true;
    ::unlink(path.c_str()); // a name that may be gone after a power cut is no promise
    fail(EIO, path);
}

bool FileCopy::link(const std::string& path) const {
    const std::string own = "/proc/self/fd/" + std::to_string(copy_.get());
    if (::linkat(AT_FDCWD, own.c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW) == 0) return true;
    if (errno != EEXIST) fail(errno, path);
    return false;
}

bool FileCopy::rename(const std::string& path) {
    bool named = ::renameat2(AT_FDCWD, hidden_.path.c_str(), AT_FDCWD, path.c_str(), RENAME_NOREPLACE) == 0;
    if (!named && errno != EEXIST) {
        // No such rename here: the name is reserved first, then what is replaced is our own empty file.
        const FileHandle reserved{::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600)};
        if (!reserved && errno != EEXIST) fail(errno, path);
        named = reserved && ::rename(hidden_.path.c_str(), path.c_str()) == 0;
        if (reserved && !named) {
            const int error = errno;
            ::unlink(path.c_str());
            fail(error, path);
        }
    }
    if (named) hidden_.path.clear();
    return named;
}

} // namespace pelrath
