#include "platform/file_lock.hpp"

#include <cerrno>

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

void releaseLock(int handle) { (void)::flock(handle, LOCK_UN); }

} // namespace pelrath
