#include "imaging/alpha_encoder.hpp"

#include "imaging/checked_bytes.hpp"
#include "imaging/exact_coding.hpp"

#include <algorithm>

namespace pelrath {

namespace {

unsigned squaredDistance(unsigned a, unsigned b) { return (a - b) * (a - b); }

} // namespace

void AlphaEncoder::add(const SourceBlock& block, std::optional<std::uint64_t> known,
                       std::span<std::byte, 8> coding) {
    Task task{{}, block.inside, {}, coding.data()};
    for (std::size_t i = 0; i < texelsPerBlock; ++i) {
        task.values[i] = block.texels[i].alpha;
    }
    if (known) task.known = {*known, errorOf(task, *known)};
    if (task.known && task.known->error == 0) return settle(task, *task.known);
    if (const auto easy = easyCoding(task)) return settle(task, *easy);
    tasks_[size_++] = task;
    if (size_ == laneCount) finish();
}

void AlphaEncoder::finish() {
    if (size_ == 0) return;
    AlphaBatch batch;
    for (std::size_t lane = 0; lane < laneCount; ++lane) {
        const Task& task = tasks_[std::min(lane, size_ - 1)];
        for (std::size_t i = 0; i < texelsPerBlock; ++i) {
            batch.values[i][lane] = task.values[i];
            batch.weights[i][lane] = isMarked(task.inside, i) ? 1 : 0;
        }
    }
    const AlphaCodings codings = fitAlphas(batch);
    for (std::size_t lane = 0; lane < size_; ++lane) {
        const auto low = static_cast<unsigned>(codings.low[lane]),
                   high = static_cast<unsigned>(codings.high[lane]);
        const bool eight = codings.eight[lane] != 0;
        settle(tasks_[lane], codingWith(tasks_[lane], eight ? high : low, eight ? low : high));
    }
    size_ = 0;
}

unsigned AlphaEncoder::errorOf(const Task& task, std::uint64_t coding) {
    const BlockAlphas alphas = alphasOf(coding);
    return sumOver(task.inside, [&](std::size_t i) {
        return squaredDistance(alphas[coding >> (16 + 3 * i) & 7U], task.values[i]);
    });
}

/// With the nearest entry for each texel.
AlphaEncoder::Candidate AlphaEncoder::codingWith(const Task& task, unsigned first, unsigned second) {
    const std::uint64_t ends = first | second << 8;
    const BlockAlphas alphas = alphasOf(ends);
    Candidate candidate{ends, 0};
    for (std::size_t i = 0; i < texelsPerBlock; ++i) {
        unsigned nearest = ~0U;
        std::uint64_t choice = 0;
        for (std::size_t entry = 0; entry < alphas.size(); ++entry) {
            const unsigned distance = squaredDistance(alphas[entry], task.values[i]);
            choice = distance < nearest ? entry : choice;
            nearest = std::min(nearest, distance);
        }
        candidate.coding |= choice << (16 + 3 * i);
        if (isMarked(task.inside, i)) candidate.error += nearest;
    }
    return candidate;
}

/// Of values that lie so close together, but for 0 and 255, that entries between the outermost ones have all.
std::optional<AlphaEncoder::Candidate> AlphaEncoder::easyCoding(const Task& task) {
    unsigned low = 255, high = 0, lowInside = 255, highInside = 0;
    for (std::size_t i = 0; i < texelsPerBlock; ++i) {
        if (!isMarked(task.inside, i)) continue;
        const unsigned value = task.values[i];
        low = std::min(low, value);
        high = std::max(high, value);
        if (value == 0 || value == 255) continue;
        lowInside = std::min(lowInside, value);
        highInside = std::max(highInside, value);
    }
    if (high == low) return Candidate{std::uint64_t{high} * 0x101, 0};
    if (high - low <= 7) return codingWith(task, high, low);
    if (lowInside > highInside) return codingWith(task, 0, 255);
    if (highInside - lowInside <= 5) return codingWith(task, lowInside, highInside);
    return std::nullopt;
}

std::optional<AlphaEncoder::Candidate> AlphaEncoder::exactCoding(const Task& task) {
    std::array<std::uint8_t, texelsPerBlock> values;
    std::size_t count = 0;
    for (std::size_t i = 0; i < texelsPerBlock; ++i) {
        if (isMarked(task.inside, i)) values[count++] = task.values[i];
    }
    const auto inside = values.begin() + static_cast<std::ptrdiff_t>(count);
    std::sort(values.begin(), inside);
    const auto end = std::unique(values.begin(), inside);
    const auto ends = exactAlphaEnds({values.begin(), end});
    if (!ends) return std::nullopt;
    return codingWith(task, *ends & 255U, *ends >> 8U);
}

/// Puts the nearest of a coding, an exact one if there is any, and the known one in its place.
void AlphaEncoder::settle(const Task& task, Candidate candidate) {
    if (candidate.error > 0) candidate = exactCoding(task).value_or(candidate);
    if (task.known && task.known->error <= candidate.error) candidate = *task.known;
    const std::span<std::byte> coding{task.coding, 8};
    writeLong(coding, 0, static_cast<std::uint32_t>(candidate.coding));
    writeLong(coding, 4, static_cast<std::uint32_t>(candidate.coding >> 32));
}

} // namespace pelrath
