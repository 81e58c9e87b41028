#include "platform/posix/byte_copy.hpp"

#include "platform/posix/folder_handle.hpp"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <vector>

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>

namespace pelrath {

namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

constexpr auto partTime = 50ms; // what a part should take
constexpr auto quietTime = 40ms;
constexpr std::uint64_t smallestPart = std::uint64_t{64} << 10;
constexpr std::uint64_t firstPart = std::uint64_t{256} << 10;
constexpr std::uint64_t largestPart = std::uint64_t{32} << 20;
constexpr std::uint64_t memorySize = std::uint64_t{1} << 20;

/// Copies from one position to the same one; the source ends before `until` only if it has been cut.
class Copying {
public:
    Copying(int from, int to) : from_(from), to_(to) {}

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

/// Starts writing each part to the disk and waits for the one before it, so that the disk always has
/// something to write and the flush at the end is no long wait. A file system that cannot do so leaves all to
/// the end.
class Flushing {
public:
    explicit Flushing(int file) : file_(file) {}

    int upTo(std::uint64_t done) {
        constexpr unsigned untilWritten =
            SYNC_FILE_RANGE_WAIT_BEFORE | SYNC_FILE_RANGE_WRITE | SYNC_FILE_RANGE_WAIT_AFTER;
        const bool waited =
            range(started_, done, SYNC_FILE_RANGE_WRITE) && range(flushed_, started_, untilWritten);
        const int error = waited ? 0 : errno;
        flushed_ = waited ? started_ : done;
        started_ = done;
        return isNoFlush(error) ? 0 : error; // nobody would be told of it a second time
    }
    /// As far as is known.
    [[nodiscard]] std::uint64_t flushed() const { return flushed_; }

private:
    [[nodiscard]] bool range(std::uint64_t from, std::uint64_t to, unsigned flags) const {
        return from == to || // which would mean all
               ::sync_file_range(file_, static_cast<off_t>(from), static_cast<off_t>(to - from), flags) == 0;
    }

    int file_;
    std::uint64_t flushed_ = 0;
    std::uint64_t started_ = 0;
};

/// As much as takes the time of a part at the speed of the last one. More only by and by: what comes first
/// goes to the memory alone.
std::uint64_t nextPart(std::uint64_t part, Clock::duration took) {
    const double fitting = static_cast<double>(part) * (std::chrono::duration<double>{partTime} / took);
    const double next =
        std::clamp<double>(std::min(fitting, 2.0 * static_cast<double>(part)), smallestPart, largestPart);
    return static_cast<std::uint64_t>(next) / smallestPart * smallestPart;
}

/// Passes on what was not passed on just before.
class Signs {
public:
    Signs(const CopyProgress& progress, std::uint64_t total) : progress_(progress), total_(total) {}

    void show(std::uint64_t done) {
        if (progress_) progress_(done, total_);
        last_ = Clock::now();
    }
    void showInTime(std::uint64_t done) {
        if (Clock::now() - last_ >= quietTime) show(done);
    }

private:
    const CopyProgress& progress_;
    std::uint64_t total_;
    Clock::time_point last_;
};

int copyInParts(int from, int to, std::uint64_t size, Signs& signs) {
    Copying copying{from, to};
    Flushing flushing{to};
    std::uint64_t part = firstPart;
    for (std::uint64_t done = 0; done < size;) {
        const Clock::time_point start = Clock::now();
        done += std::min(part, size - done);
        int error = copying.upTo(done);
        if (error == 0) error = flushing.upTo(done);
        if (error != 0) return error;
        signs.showInTime(flushing.flushed());
        part = nextPart(part, Clock::now() - start);
    }
    return 0;
}

} // namespace

int copyFlushed(int from, int to, std::uint64_t size, const CopyProgress& progress) {
    Signs signs{progress, size};
    signs.show(0);
    if (::ioctl(to, FICLONE, from) != 0) {
        if (const int error = copyInParts(from, to, size, signs); error != 0) return error;
    }
    if (::fsync(to) != 0) return errno;
    signs.show(size);
    return 0;
}

int copyToNewFile(int from, const std::string& folder, NewFile::Start start, const CopyProgress& progress,
                  NewFile& copy) {
    struct stat before {};
    struct stat after {};
    struct stat made {};
    if (::fstat(from, &before) != 0) return errno;
    if (const int error = copy.create(folder, start); error != 0) return error;
    // A file system without permissions keeps none.
    if (::fchmod(copy.handle(), before.st_mode & 0777U) != 0 && errno != EPERM) return errno;
    const auto size = static_cast<std::uint64_t>(before.st_size);
    if (const int error = copyFlushed(from, copy.handle(), size, progress); error != 0) return error;
    if (::fstat(from, &after) != 0 || ::fstat(copy.handle(), &made) != 0) return errno;
    return after.st_size == before.st_size && made.st_size == before.st_size ? 0 : EIO;
}

} // namespace pelrath
