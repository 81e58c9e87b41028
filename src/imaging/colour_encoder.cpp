#include "imaging/colour_encoder.hpp"

#include "imaging/checked_bytes.hpp"
#include "imaging/exact_coding.hpp"
#include "imaging/stored_colours.hpp"

#include <algorithm>
#include <bit>

namespace pelrath {

namespace {

static_assert(std::endian::native == std::endian::little, "red is a texel's lowest byte");
constexpr std::uint32_t colourBits = 0xFFFFFF;
constexpr std::uint64_t allClear = std::uint64_t{0xFFFFFFFF} << 32;

unsigned squaredDistance(const Texel& a, const Texel& b) {
    const int red = a.red - b.red, green = a.green - b.green, blue = a.blue - b.blue;
    return static_cast<unsigned>(red * red + green * green + blue * blue);
}

/// In one comparison: this is asked for most pairs of texels.
bool sameColour(const Texel& a, const Texel& b) {
    return ((std::bit_cast<std::uint32_t>(a) ^ std::bit_cast<std::uint32_t>(b)) & colourBits) == 0;
}

std::uint32_t packed(const ColourEnds& ends) { return ends.first | std::uint32_t{ends.second} << 16; }

ColourBatch batchOf(std::span<const BlockTexels, laneCount> texels,
                    const std::array<TexelMarks, laneCount>& visible) {
    ColourBatch batch;
    LaneInts marks;
    for (std::size_t lane = 0; lane < laneCount; ++lane) {
        marks[lane] = visible[lane];
    }
    for (std::size_t i = 0; i < texelsPerBlock; ++i) {
        LaneInts packed;
        for (std::size_t lane = 0; lane < laneCount; ++lane) {
            packed[lane] = std::bit_cast<std::int32_t>(texels[lane][i]);
        }
        for (std::size_t c = 0; c < batch.texels[i].size(); ++c) {
            batch.texels[i][c] = toLanes(packed >> static_cast<int>(8 * c) & 0xFF);
        }
        batch.weights[i] = toLanes(marks >> static_cast<int>(i) & 1);
    }
    return batch;
}

/// Of all texels of a block, in a form that becomes wide arithmetic.
unsigned squaredDistance(const BlockTexels& a, const BlockTexels& b) {
    constexpr std::size_t size = sizeof(BlockTexels);
    const auto ofA = std::bit_cast<std::array<std::uint8_t, size>>(a);
    const auto ofB = std::bit_cast<std::array<std::uint8_t, size>>(b);
    int sum = 0;
    for (std::size_t i = 0; i < size; ++i) {
        const auto off = static_cast<std::int16_t>(ofA[i] - ofB[i]);
        sum += off * off;
    }
    return static_cast<unsigned>(sum);
}

/// Those that are marked, each once, but no more than five.
struct Colours {
    Colours(const BlockTexels& texels, TexelMarks marks) {
        for (unsigned left = marks; left != 0 && count < at.size(); left &= left - 1) {
            const Texel& texel = texels[static_cast<std::size_t>(std::countr_zero(left))];
            const auto same = [&texel](const Texel& other) { return sameColour(texel, other); };
            const auto end = at.begin() + static_cast<std::ptrdiff_t>(count);
            if (std::none_of(at.begin(), end, same)) at[count++] = texel;
        }
    }
    std::array<Texel, 5> at{};
    std::size_t count = 0;
};

} // namespace

void ColourEncoder::add(const SourceBlock& block, std::optional<std::uint64_t> known,
                        std::span<std::byte, 8> coding) {
    Task task{block.texels, block.inside, 0, {}, coding.data()};
    if (format_ == BlockFormat::Dxt1) {
        for (std::size_t i = 0; i < texelsPerBlock; ++i) {
            if (block.texels[i].alpha < 128) task.clear = static_cast<TexelMarks>(task.clear | 1U << i);
        }
        task.clear &= block.inside;
        task.visible = static_cast<TexelMarks>(block.inside & ~task.clear);
    }
    if (known) {
        if (const auto error = errorOf(task, *known)) task.known = {*known, *error};
        if (task.known && task.known->error == 0) return settle(task, *task.known);
    }
    if (task.visible == 0) return settle(task, {allClear, 0});
    if (const auto flat = flatCoding(task)) return settle(task, *flat);
    Queue& queue = task.clear != 0 ? cutOut_ : whole_;
    queue.tasks[queue.size++] = task;
    if (queue.size == laneCount) run(queue, task.clear != 0);
}

void ColourEncoder::finish() {
    run(whole_, false);
    run(cutOut_, true);
}

/// Nothing where a coding has other texels clear than are to be.
std::optional<unsigned> ColourEncoder::errorOf(const Task& task, std::uint64_t coding) const {
    const BlockPalette palette = paletteOf(format_, coding);
    BlockTexels off = task.texels;
    TexelMarks clear = 0;
    for (std::size_t i = 0; i < texelsPerBlock; ++i) {
        const Texel& entry = palette[coding >> (32 + 2 * i) & 3U];
        clear = static_cast<TexelMarks>(clear | (entry.alpha == 0 ? 1U << i : 0U));
        const bool counts = isMarked(task.visible, i);
        if (counts) off[i] = {entry.red, entry.green, entry.blue, task.texels[i].alpha};
    }
    if ((clear & (task.visible | task.clear)) != task.clear) return std::nullopt;
    return squaredDistance(off, task.texels);
}

/// With the nearest entry for each texel.
ColourEncoder::Candidate ColourEncoder::codingWith(const Task& task, std::uint32_t ends) const {
    const BlockPalette palette = paletteOf(format_, ends);
    const std::size_t entries = palette[3].alpha == 0 ? 3 : 4;
    Candidate candidate{ends, 0};
    unsigned nearest = 0;
    std::uint64_t chosen = 0;
    for (std::size_t i = 0; i < texelsPerBlock; ++i) {
        if (i == 0 || !sameColour(task.texels[i], task.texels[i - 1])) {
            nearest = ~0U;
            for (std::size_t entry = 0; entry < entries; ++entry) {
                const unsigned distance = squaredDistance(palette[entry], task.texels[i]);
                if (distance < nearest) chosen = entry;
                nearest = std::min(nearest, distance);
            }
        }
        const bool clear = isMarked(task.clear, i);
        candidate.coding |= (clear ? 3 : chosen) << (32 + 2 * i);
        if (isMarked(task.visible, i)) candidate.error += nearest;
    }
    return candidate;
}

std::optional<ColourEncoder::Candidate> ColourEncoder::flatCoding(const Task& task) const {
    const Texel& first = task.texels[static_cast<std::size_t>(std::countr_zero(task.visible))];
    for (std::size_t i = 0; i < texelsPerBlock; ++i) {
        if (isMarked(task.visible, i) && !sameColour(task.texels[i], first)) return std::nullopt;
    }
    const NearestEnds four = nearestEnds(first, true), three = nearestEnds(first, false);
    const bool needsThree = task.clear != 0;
    const bool mayThree = format_ == BlockFormat::Dxt1 && three.error < four.error;
    return codingWith(task, packed(needsThree || mayThree ? three.ends : four.ends));
}

std::optional<ColourEncoder::Candidate> ColourEncoder::exactCoding(const Task& task) const {
    const Colours colours{task.texels, task.visible};
    for (const bool four : {true, false}) {
        const bool possible = four ? task.clear == 0 : format_ == BlockFormat::Dxt1;
        if (!possible) continue;
        if (const auto ends = exactEnds(std::span{colours.at}.first(colours.count), four)) {
            return codingWith(task, packed(*ends));
        }
    }
    return std::nullopt;
}

void ColourEncoder::run(Queue& queue, bool cutOut) const {
    if (queue.size == 0) return;
    std::array<BlockTexels, laneCount> texels;
    std::array<TexelMarks, laneCount> visible;
    for (std::size_t lane = 0; lane < laneCount; ++lane) {
        const Task& task = queue.tasks[std::min(lane, queue.size - 1)];
        visible[lane] = task.visible;
        texels[lane] = task.visible == 0xFFFF ? task.texels : onlyMarked(task.texels, task.visible);
    }
    const ColourBatch batch = batchOf(texels, visible);
    const Palettes whole = format_ == BlockFormat::Dxt1 ? Palettes::Either : Palettes::Four;
    ColourCodings codings = fitColours(batch, cutOut ? Palettes::Three : whole);
    if (anyOf(codings.error > 0)) polishColours(batch, codings);
    const StoredColours stored = storedColours(batch, codings);
    for (std::size_t lane = 0; lane < queue.size; ++lane) {
        const Task& task = queue.tasks[lane];
        const auto at = [lane](const LaneInts& values) { return static_cast<std::uint32_t>(values[lane]); };
        Candidate candidate{at(stored.first) | at(stored.second) << 16,
                            static_cast<unsigned>(codings.error[lane])};
        candidate.coding |= std::uint64_t{at(stored.choices)} << 32;
        for (unsigned left = task.clear; left != 0; left &= left - 1) {
            candidate.coding |= std::uint64_t{3} << (32 + 2 * std::countr_zero(left));
        }
        settle(task, candidate);
    }
    queue.size = 0;
}

/// Puts the nearest of a coding, an exact one if there is any, and the known one in its place.
void ColourEncoder::settle(const Task& task, Candidate candidate) const {
    if (candidate.error > 0) candidate = exactCoding(task).value_or(candidate);
    if (task.known && task.known->error <= candidate.error) candidate = *task.known;
    const std::span<std::byte> coding{task.coding, 8};
    writeLong(coding, 0, static_cast<std::uint32_t>(candidate.coding));
    writeLong(coding, 4, static_cast<std::uint32_t>(candidate.coding >> 32));
}

} // namespace pelrath
