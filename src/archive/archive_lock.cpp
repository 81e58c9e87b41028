#include "archive/archive_lock.hpp"

#include <chrono>
#include <thread>

namespace pelrath {

bool lockArchive(const InputFile& archive, LockKind kind) {
    constexpr std::chrono::milliseconds pause{10};
    constexpr int pauses = 50;
    for (int i = 0; i <= pauses; ++i) {
        if (i > 0) std::this_thread::sleep_for(pause);
        if (tryLock(archive.handle(), kind) != LockAnswer::Taken) return true;
    }
    return false;
}

} // namespace pelrath
