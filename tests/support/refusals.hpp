#pragma once

#include <cstdint>
#include <functional>

namespace pelrath::test {

/// What a program asks of the system and a test can answer in its place.
enum class Call {
    NamelessFile, ///< openat with O_TMPFILE
    OpenToWrite,  ///< open of what is there already, with O_WRONLY
    OpenAsOwner,  ///< open with O_NOATIME
    Link,         ///< linkat
    Rename,       ///< rename, renameat
    NewName,      ///< renameat2
    Remove,       ///< unlink, unlinkat
    Flush,        ///< fsync
    Lock,         ///< flock
    Copy,         ///< copy_file_range
    FlushPart,    ///< sync_file_range
    AskPlace,     ///< fstatvfs, which then tells of a file system that can only be read
    User,         ///< geteuid, which then tells of another user
    NewThread,    ///< pthread_create
    Count
};

/// While it lives, each such call of this process is answered here first. Needs refusals.cpp in the program.
class Answering {
public:
    /// Gets the bytes that the call is about, if any. 0: the system itself is to answer; else the error
    /// (errno) with which the call fails.
    using Answer = std::function<int(std::uint64_t bytes)>;

    Answering(Call call, Answer answer);
    ~Answering();
    Answering(const Answering&) = delete;
    Answering& operator=(const Answering&) = delete;

private:
    Call call_;
    Answer before_;
};

/// While it lives, the system refuses such calls: the first `spared` ones pass, the next `times` fail.
class Refusal {
public:
    Refusal(Call call, int error, int spared = 0, int times = 1'000'000)
        : answering_(call, [=, count = 0](std::uint64_t) mutable {
              const int index = count++ - spared;
              return index >= 0 && index < times ? error : 0;
          }) {}

private:
    Answering answering_;
};

} // namespace pelrath::test
