#pragma once

/// Locks by which the program's own copies keep out of each other's way; nobody else heeds them. A lock is of
/// what a handle has opened, a file or a folder, and goes with the last duplicate of that handle, however its
/// holder ends.
namespace pelrath {

enum class LockKind { Shared, Exclusive };

enum class LockAnswer {
    Held,    ///< it is ours; one of the other kind that was ours before has gone
    Taken,   ///< another opening holds one that does not go with it; ours from before, if any, may be gone
    Unknown, ///< the file system has no locks
};

/// Takes the lock without waiting.
[[nodiscard]] LockAnswer tryLock(int handle, LockKind kind);

/// The same, but waits half a second for another one to give it up: longer than a look at a level or at what
/// a folder holds takes.
[[nodiscard]] LockAnswer waitForLock(int handle, LockKind kind);

/// Gives it up while the handle, or a duplicate of it, stays open.
void releaseLock(int handle);

} // namespace pelrath
