#include "imaging/chain_encoder.hpp"

#include "imaging/long_work.hpp"
#include "platform/runtime_error.hpp"

#include <atomic>
#include <vector>

namespace pelrath {

namespace {

/// Takes the first bytes, or none where there are not so many.
template <typename Span>
Span taken(Span& from, std::size_t count) {
    if (from.size() < count) from = {};
    const Span first = from.first(from.empty() ? 0 : count);
    from = from.subspan(first.size());
    return first;
}

/// Parts are counted through all levels.
void encodePart(std::span<const LevelEncoder> levels, std::size_t part) {
    for (const LevelEncoder& level : levels) {
        if (part < level.parts()) return level.encodePart(part);
        part -= level.parts();
    }
}

} // namespace

std::uint64_t bytesOfLevels(BlockFormat format, std::span<const Pixels> levels) {
    std::uint64_t bytes = 0;
    for (const Pixels& level : levels) {
        bytes += bytesPerLevel(format, level.sides.width, level.sides.height);
    }
    return bytes;
}

void encodeChain(BlockFormat format, std::span<const Pixels> levels, Bytes known,
                 std::span<std::byte> blocks) {
    if (blocks.size() != bytesOfLevels(format, levels)) {
        throw makeError(ErrorNumber::InvalidCall, "encodeChain");
    }
    std::vector<LevelEncoder> encoders;
    std::size_t parts = 0;
    for (const Pixels& level : levels) {
        const auto bytes = static_cast<std::size_t>(bytesOfLevels(format, {&level, 1}));
        encoders.emplace_back(format, level, taken(known, bytes), taken(blocks, bytes));
        parts += encoders.back().parts();
    }
    constexpr std::size_t few = 8;
    std::atomic<std::size_t> next = 0;
    // Parts take unlike times: whoever is free takes the next.
    onAllCores(parts, few, [&](std::size_t /*first*/, std::size_t /*end*/) {
        for (std::size_t part = next++; part < parts; part = next++) {
            encodePart(encoders, part);
        }
    });
}

} // namespace pelrath
