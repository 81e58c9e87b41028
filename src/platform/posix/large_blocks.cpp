#include "platform/posix/large_blocks.hpp"

#include <cstdlib>

#include <sys/mman.h>

namespace pelrath {

namespace {

constexpr std::size_t largePage = std::size_t{2} << 20; // where the system has other ones, it may ignore this

bool isLarge(std::size_t bytes) {
    return bytes >= largePage / 2 && bytes <= std::numeric_limits<std::size_t>::max() / 2;
}

} // namespace

void* takeBlock(std::size_t bytes) {
    if (!isLarge(bytes)) return ::operator new(bytes);
    const std::size_t whole = (bytes + largePage - 1) / largePage * largePage;
    void* block = std::aligned_alloc(largePage, whole);
    if (block == nullptr) throw std::bad_alloc{};
    (void)::madvise(block, whole, MADV_HUGEPAGE); // a wish
    return block;
}

void giveBlockBack(void* block, std::size_t bytes) noexcept {
    if (isLarge(bytes)) {
        std::free(block);
    } else {
        ::operator delete(block);
    }
}

} // namespace pelrath
