#include "platform/posix/freed_memory.hpp"

#include <malloc.h>

namespace pelrath {

void keepFreedMemory() {
    constexpr int gigabyte = 1 << 30;
    ::mallopt(M_MMAP_THRESHOLD, gigabyte);
    ::mallopt(M_TRIM_THRESHOLD, gigabyte);
}

} // namespace pelrath
