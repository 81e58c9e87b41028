#include "imaging/chain_encoder.hpp"

#include <algorithm>
#include <system_error>
#include <thread>

namespace pelrath {

ChainEncoder::ChainEncoder(BlockFormat format, std::span<const Pixels> levels, Bytes known) {
    const auto sizeOf = [format](const Pixels& level) {
        return static_cast<std::size_t>(bytesPerLevel(format, level.sides.width, level.sides.height));
    };
    std::size_t size = 0;
    for (const Pixels& level : levels) {
        size += sizeOf(level);
    }
    blocks_.resize(size);
    std::span<std::byte> blocks = blocks_;
    for (const Pixels& level : levels) {
        const std::size_t ofLevel = sizeOf(level);
        known = known.first(known.size() < ofLevel ? 0 : known.size());
        levels_.emplace_back(format, level, known.first(known.empty() ? 0 : ofLevel), blocks.first(ofLevel));
        parts_ += levels_.back().parts();
        blocks = blocks.subspan(ofLevel);
        known = known.subspan(known.empty() ? 0 : ofLevel);
    }
}

ChainEncoder::~ChainEncoder() { next_ = parts_; }

void ChainEncoder::start() {
    constexpr std::size_t few = 8;
    const std::size_t others = std::max(std::thread::hardware_concurrency(), 1U) - 1;
    try {
        while (parts_ > few && helpers_.size() < others) {
            helpers_.push_back(std::async(std::launch::async, [this] { work(); }));
        }
    } catch (const std::system_error&) { // no thread is to be had
    }
}

Bytes ChainEncoder::finish() {
    work();
    for (std::future<void>& helper : helpers_) {
        helper.get();
    }
    return blocks_;
}

void ChainEncoder::work() {
    for (std::size_t part = next_++; part < parts_; part = next_++) {
        doPart(part);
    }
}

void ChainEncoder::doPart(std::size_t part) const {
    for (const LevelEncoder& level : levels_) {
        if (part < level.parts()) return level.encodePart(part);
        part -= level.parts();
    }
}

} // namespace pelrath
