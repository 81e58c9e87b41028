#include "platform/posix/file_lock.hpp"

#include <cerrno>
#include <chrono>
#include <thread>

#include <sys/file.h>

namespace pelrath {

LockAnswer tryLock(int handle, LockKind kind) {
    const int operation = (kind == LockKind::Shared ? LOCK_SH : LOCK_EX) | LOCK_NB;
    int result = 0;
    do {
        result = ::flock(handle, operation);
    } while (result != 0 && errno == EINTR);
    if (result == 0) return LockAnswer::Held;
    return errno == EWOULDBLOCK ? LockAnswer::Taken : LockAnswer::Unknown;
}

LockAnswer waitForLock(int handle, LockKind kind) {
    constexpr std::chrono::milliseconds pause{10};
    LockAnswer answer = tryLock(handle, kind);
    for (int pauses = 50; answer == LockAnswer::Taken && pauses > 0; --pauses) {
        std::this_thread::sleep_for(pause);
        answer = tryLock(handle, kind);
    }
    return answer;
}

void releaseLock(int handle) { (void)::flock(handle, LOCK_UN); }

} // namespace pelrath
