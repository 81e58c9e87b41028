#include "support/refusals.hpp"

#include <array>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <string>
#include <utility>

#include <dlfcn.h>
#include <fcntl.h>
#include <pthread.h>
#include <sys/file.h>
#include <sys/statvfs.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace pelrath::test {
namespace {

std::array<Answering::Answer, static_cast<std::size_t>(Call::Count)> answers;

Answering::Answer& answerTo(Call call) { return answers[static_cast<std::size_t>(call)]; }

int answersTo(Call call, std::uint64_t bytes = 0) { return answerTo(call) ? answerTo(call)(bytes) : 0; }

/// What the call answers; the system where nobody here does.
template <class... Arguments>
long ask(Call call, std::uint64_t bytes, long number, Arguments... arguments) {
    const int error = answersTo(call, bytes);
    if (error == 0) return syscall(number, arguments...);
    errno = error;
    return -1;
}

} // namespace

Answering::Answering(Call call, Answer answer)
    : call_(call), before_(std::exchange(answerTo(call), std::move(answer))) {}

Answering::~Answering() { answerTo(call_) = before_; }

} // namespace pelrath::test

using pelrath::test::answersTo;
using pelrath::test::ask;
using pelrath::test::Call;

// Where a program has functions of these names, all of it calls them instead of the system library's.
extern "C" {

int open(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const auto mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    const bool toWrite = (flags & (O_WRONLY | O_CREAT)) == O_WRONLY;
    if (!toWrite && (flags & O_NOATIME) == 0)
        return static_cast<int>(syscall(SYS_openat, AT_FDCWD, path, flags, mode));
    return static_cast<int>(
        ask(toWrite ? Call::OpenToWrite : Call::OpenAsOwner, 0, SYS_openat, AT_FDCWD, path, flags, mode));
}

int openat(int folder, const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const auto mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    if ((flags & O_TMPFILE) != O_TMPFILE)
        return static_cast<int>(syscall(SYS_openat, folder, path, flags, mode));
    return static_cast<int>(ask(Call::NamelessFile, 0, SYS_openat, folder, path, flags, mode));
}

int linkat(int from, const char* name, int to, const char* newName, int flags) noexcept {
    return static_cast<int>(ask(Call::Link, 0, SYS_linkat, from, name, to, newName, flags));
}

int rename(const char* name, const char* newName) noexcept {
    return static_cast<int>(ask(Call::Rename, 0, SYS_renameat2, AT_FDCWD, name, AT_FDCWD, newName, 0));
}

int renameat(int from, const char* name, int to, const char* newName) noexcept {
    return static_cast<int>(ask(Call::Rename, 0, SYS_renameat2, from, name, to, newName, 0));
}

int renameat2(int from, const char* name, int to, const char* newName, unsigned flags) noexcept {
    return static_cast<int>(ask(Call::NewName, 0, SYS_renameat2, from, name, to, newName, flags));
}

int unlink(const char* name) noexcept {
    return static_cast<int>(ask(Call::Remove, 0, SYS_unlinkat, AT_FDCWD, name, 0));
}

int unlinkat(int folder, const char* name, int flags) noexcept {
    return static_cast<int>(ask(Call::Remove, 0, SYS_unlinkat, folder, name, flags));
}

int fsync(int file) { return static_cast<int>(ask(Call::Flush, 0, SYS_fsync, file)); }

int flock(int file, int operation) noexcept {
    return static_cast<int>(ask(Call::Lock, 0, SYS_flock, file, operation));
}

int fstatvfs(int file, struct statvfs* place) noexcept {
    const std::string itself = "/proc/self/fd/" + std::to_string(file);
    const int result = ::statvfs(itself.c_str(), place);
    if (answersTo(Call::AskPlace) != 0) place->f_flag |= ST_RDONLY;
    return result;
}

uid_t geteuid() noexcept { return static_cast<uid_t>(syscall(SYS_geteuid) + answersTo(Call::User)); }

int pthread_create(pthread_t* thread, const pthread_attr_t* attributes, void* (*work)(void*),
                   void* data) noexcept {
    static const auto system =
        reinterpret_cast<decltype(&pthread_create)>(dlsym(RTLD_NEXT, "pthread_create"));
    const int error = answersTo(Call::NewThread);
    return error != 0 ? error : system(thread, attributes, work, data);
}

ssize_t copy_file_range(int in, off_t* from, int out, off_t* to, size_t length, unsigned flags) {
    return ask(Call::Copy, length, SYS_copy_file_range, in, from, out, to, length, flags);
}

int sync_file_range(int file, off_t from, off_t length, unsigned flags) {
    return static_cast<int>(ask(Call::FlushPart, static_cast<std::uint64_t>(length), SYS_sync_file_range,
                                file, from, length, flags));
}
}
