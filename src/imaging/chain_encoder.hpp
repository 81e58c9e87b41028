#pragma once

#include "imaging/level_encoder.hpp"

#include <atomic>
#include <cstddef>
#include <future>
#include <span>
#include <vector>

namespace pelrath {

/// Compresses the levels of a picture on all cores (see LevelEncoder), while its caller does something else
/// that leaves the pixels alone.
class ChainEncoder {
public:
    /// `known` has the blocks of as many levels as it is long for, or nothing. Fails as LevelEncoder does.
    ChainEncoder(BlockFormat format, std::span<const Pixels> levels, Bytes known);
    /// Ends what has been started.
    ~ChainEncoder();
    ChainEncoder(const ChainEncoder&) = delete;
    ChainEncoder& operator=(const ChainEncoder&) = delete;

    /// Begins on the other cores, unless it is too little to be worth it.
    void start();
    /// Helps, waits for the end, and answers the blocks of all levels. What was raised meanwhile leaves here.
    [[nodiscard]] Bytes finish();

private:
    void work();
    void doPart(std::size_t part) const;

    std::vector<std::byte> blocks_;
    std::vector<LevelEncoder> levels_;
    std::size_t parts_ = 0; ///< of all levels
    std::atomic<std::size_t> next_ = 0;
    std::vector<std::future<void>> helpers_;
};

} // namespace pelrath
