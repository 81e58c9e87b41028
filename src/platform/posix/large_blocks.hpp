#pragma once

#include <cstddef>
#include <limits>
#include <new>

namespace pelrath {

/// Memory for so many bytes, to be given back with the same number. The system is asked to give a large block
/// in large pages: taken one small page after another, it costs more than what is written into it. Fails with
/// std::bad_alloc.
[[nodiscard]] void* takeBlock(std::size_t bytes);
void giveBlockBack(void* block, std::size_t bytes) noexcept;

/// An allocator for containers that can become large.
template <class T>
struct LargeBlocks {
    using value_type = T;

    LargeBlocks() = default;
    template <class Other>
    LargeBlocks(const LargeBlocks<Other>& /*all are one*/) {} // NOLINT(google-explicit-constructor)

    [[nodiscard]] T* allocate(std::size_t count) {
        if (count > std::numeric_limits<std::size_t>::max() / sizeof(T)) throw std::bad_array_new_length{};
        return static_cast<T*>(takeBlock(count * sizeof(T)));
    }
    void deallocate(T* block, std::size_t count) noexcept { giveBlockBack(block, count * sizeof(T)); }

    template <class Other>
    bool operator==(const LargeBlocks<Other>& /*all are one*/) const {
        return true;
    }
};

} // namespace pelrath
