#include "imaging/level_encoder.hpp"

#include "imaging/alpha_encoder.hpp"
#include "imaging/checked_bytes.hpp"
#include "imaging/colour_encoder.hpp"
#include "platform/runtime_error.hpp"

#include <algorithm>
#include <optional>

namespace pelrath {

LevelEncoder::LevelEncoder(BlockFormat format, const Pixels& level, Bytes known, std::span<std::byte> blocks)
    : format_(format), level_(level), known_(known), blocks_(blocks) {
    const Sides sides = level.sides;
    if (sides.width == 0 || sides.height == 0 || level.values.size() != sides.pixels() * bytesPerTexel ||
        blocks.size() != bytesPerLevel(format, sides.width, sides.height) ||
        (!known.empty() && known.size() != blocks.size())) {
        throw makeError(ErrorNumber::InvalidCall, "LevelEncoder");
    }
}

/// Of blocks: enough that eight of a kind are seldom missing at a part's end.
std::size_t LevelEncoder::rowsAPart() const { return std::max<std::size_t>(1024 / blocksAcross(), 1); }

std::size_t LevelEncoder::parts() const {
    const std::size_t rows = (level_.sides.height + std::size_t{3}) / 4;
    return (rows + rowsAPart() - 1) / rowsAPart();
}

void LevelEncoder::encodePart(std::size_t part) const {
    const std::size_t size = bytesPerBlock(format_);
    const std::size_t firstRow = part * rowsAPart();
    const std::size_t from = firstRow * blocksAcross();
    const std::size_t end = std::min(from + rowsAPart() * blocksAcross(), blocks_.size() / size);
    ColourEncoder colours{format_};
    AlphaEncoder alphas;
    for (std::size_t i = from; i < end; ++i) {
        const auto left = static_cast<std::uint32_t>(i % blocksAcross() * 4);
        const auto top = static_cast<std::uint32_t>(i / blocksAcross() * 4);
        const SourceBlock block = blockAt(level_, left, top);
        const std::span<std::byte> coding = blocks_.subspan(i * size, size);
        const auto known = [&](std::size_t offset) -> std::optional<std::uint64_t> {
            if (known_.empty()) return std::nullopt;
            return littleEndian(known_.subspan(i * size + offset, 8));
        };
        colours.add(block, known(size - 8), coding.last<8>());
        if (format_ == BlockFormat::Dxt5) alphas.add(block, known(0), coding.first<8>());
    }
    colours.finish();
    alphas.finish();
}

void LevelEncoder::encodeAll() const {
    for (std::size_t part = 0; part < parts(); ++part) {
        encodePart(part);
    }
}

} // namespace pelrath
