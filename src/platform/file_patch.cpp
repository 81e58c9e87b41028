#include "platform/file_patch.hpp"

#include "platform/file_handle.hpp"
#include "platform/runtime_error.hpp"

#include <cerrno>
#include <csignal>
#include <optional>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>

namespace pelrath {

namespace {

enum class Step : int { Done, NotBegun, Outside, PutBack, Torn };

/// What came of an overwriting. Goes through a pipe as it is.
struct Outcome {
    Step step = Step::Torn;
    int error = 0; ///< the system's
};

/// How many bytes were written; fewer than all where the system refused the rest, and errno says why.
std::size_t writeAll(int file, Bytes bytes, std::uint64_t offset) {
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t count =
            ::pwrite(file, bytes.data() + done, bytes.size() - done, static_cast<off_t>(offset + done));
        if (count < 0 && errno == EINTR) continue;
        if (count == 0) errno = ENOSPC;
        if (count <= 0) break;
        done += static_cast<std::size_t>(count);
    }
    return done;
}

bool readAll(int file, std::span<std::byte> into, std::uint64_t offset) {
    while (!into.empty()) {
        const ssize_t count = ::pread(file, into.data(), into.size(), static_cast<off_t>(offset));
        if (count < 0 && errno == EINTR) continue;
        if (count == 0) errno = EIO;
        if (count <= 0) return false;
        offset += static_cast<std::uint64_t>(count);
        into = into.subspan(static_cast<std::size_t>(count));
    }
    return true;
}

Outcome overwriteOpened(int file, std::uint64_t offset, Bytes bytes, std::span<std::byte> old) {
    struct stat info {};
    if (::fstat(file, &info) != 0) return {Step::NotBegun, errno};
    const auto size = static_cast<std::uint64_t>(info.st_size);
    if (offset > size || bytes.size() > size - offset) return {Step::Outside, 0};
    if (!readAll(file, old, offset)) return {Step::NotBegun, errno};
    const std::size_t written = writeAll(file, bytes, offset);
    if (written == bytes.size() && ::fsync(file) == 0) return {Step::Done, 0};
    const int error = errno;
    const Bytes back = Bytes{old}.first(written);
    const bool restored = back.empty() || (writeAll(file, back, offset) == back.size() && ::fsync(file) == 0);
    return {restored ? Step::PutBack : Step::Torn, error};
}

/// Every signal that can wait waits for as long as this lives; what is forked meanwhile never gets one.
class SignalsWait {
public:
    SignalsWait() {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_BLOCK, &all, &before_);
    }
    ~SignalsWait() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
    SignalsWait(const SignalsWait&) = delete;
    SignalsWait& operator=(const SignalsWait&) = delete;

private:
    sigset_t before_{};
};

void waitFor(pid_t child) {
    while (::waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
    }
}

/// Runs `work` in a child process. Only system calls may be in it: the child is a copy of one thread of
/// perhaps many, and what the others held stays held.
template <class Work>
Outcome inChild(const Work& work) {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0) return {Step::NotBegun, errno};
    const FileHandle reading{ends[0]};
    FileHandle writing{ends[1]};
    const SignalsWait waiting;
    const pid_t child = ::_Fork();
    if (child < 0) return {Step::NotBegun, errno};
    if (child == 0) {
        ::setsid(); // whoever kills the program's whole group does not mean it
        const Outcome outcome = work();
        // Nobody reads it where the program is gone.
        [[maybe_unused]] const ssize_t sent = ::write(writing.get(), &outcome, sizeof outcome);
        ::_exit(0);
    }
    writing.close();
    Outcome outcome{Step::Torn, EIO}; // of a child that was itself killed
    ssize_t count = 0;
    do {
        count = ::read(reading.get(), &outcome, sizeof outcome);
    } while (count < 0 && errno == EINTR);
    waitFor(child);
    return outcome;
}

FileHandle openToWrite(const char* path, int access) {
    return FileHandle{::open(path, access | O_CLOEXEC | O_NONBLOCK)};
}

} // namespace

void writeInto(const std::string& path, std::uint64_t offset, Bytes bytes) {
    const FileHandle file = openToWrite(path.c_str(), O_WRONLY);
    if (!file || writeAll(file.get(), bytes, offset) != bytes.size()) {
        throw makeSystemError(errno, "writeInto", path);
    }
}

void overwriteWholly(const InputFile& opened, std::uint64_t offset, Bytes bytes) {
    const std::string& path = opened.path();
    // Leads to the file itself, also when another has its name.
    const std::string itself = "/proc/self/fd/" + std::to_string(opened.handle());
    std::vector<std::byte> old(bytes.size());
    const Outcome outcome = inChild([&] {
        const FileHandle file = openToWrite(itself.c_str(), O_RDWR);
        return file ? overwriteOpened(file.get(), offset, bytes, old) : Outcome{Step::NotBegun, errno};
    });
    if (outcome.step == Step::Done) return;
    if (outcome.step == Step::Outside)
        throw makeError(ErrorNumber::InputPastEnd, "overwriteWholly", path + " is too short");
    const std::string place =
        std::to_string(bytes.size()) + " bytes at " + std::to_string(offset) + " of " + path;
    throw makeSystemError(outcome.error, "overwriteWholly",
                          outcome.step == Step::Torn ? place + " may be damaged" : path);
}

} // namespace pelrath
