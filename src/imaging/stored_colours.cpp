#include "imaging/stored_colours.hpp"

#include "imaging/lane_palette.hpp"

namespace pelrath {

namespace {

/// Of both end points in one channel: a step down, as it is, a step up.
constexpr std::size_t moves = 3;

/// The squared distances of a texel from all entries, in the two channels that stay.
std::array<Lanes, 4> distancesWithout(std::size_t channel, const LaneColour& texel,
                                      const LanePalette& palette) {
    const std::size_t one = (channel + 1) % 3, other = (channel + 2) % 3;
    std::array<Lanes, 4> distances;
    for (std::size_t entry = 0; entry < palette.size(); ++entry) {
        const Lanes x = texel[one] - palette[entry][one], y = texel[other] - palette[entry][other];
        distances[entry] = x * x + y * y;
    }
    return distances;
}

/// One channel of the palettes that the moved end points make.
struct MovedEnds {
    MovedEnds(const ColourCodings& codings, std::size_t channel) {
        for (std::size_t i = 0; i < moves; ++i) {
            const float move = static_cast<float>(i) - 1;
            first[i] = within(codings.first[channel] + move, 0, lastSteps[channel]);
            second[i] = within(codings.second[channel] + move, 0, lastSteps[channel]);
        }
        for (std::size_t i = 0; i < moves * moves; ++i) {
            entries[i] = entriesBetween(first[i / moves], second[i % moves], codings.four, channel);
        }
    }
    std::array<Lanes, moves> first, second;
    std::array<std::array<Lanes, 4>, moves * moves> entries;
};

void polishChannel(std::size_t channel, const ColourBatch& batch, ColourCodings& codings) {
    const LanePalette palette = lanePaletteOf({codings.first, codings.second}, codings.four);
    const MovedEnds moved{codings, channel};
    constexpr std::size_t unmoved = moves * moves / 2;
    std::array<Lanes, moves * moves> errors{};
    for (std::size_t i = 0; i < texelsPerBlock; ++i) {
        const std::array<Lanes, 4> others = distancesWithout(channel, batch.texels[i], palette);
        const auto distance = [&](std::size_t entry, Lanes value) {
            const Lanes off = batch.texels[i][channel] - value;
            return others[entry] + off * off;
        };
        std::array<Lanes, moves> ofFirst, ofSecond;
        for (std::size_t move = 0; move < moves; ++move) {
            ofFirst[move] = distance(0, moved.entries[move * moves][0]);
            ofSecond[move] = distance(1, moved.entries[move][1]);
        }
        for (std::size_t k = 0; k < errors.size(); ++k) {
            if (k == unmoved) continue;
            const Lanes ofEnds = least(ofFirst[k / moves], ofSecond[k % moves]);
            const Lanes between = least(distance(2, moved.entries[k][2]), distance(3, moved.entries[k][3]));
            errors[k] += batch.weights[i] * least(ofEnds, between);
        }
    }
    for (std::size_t k = 0; k < errors.size(); ++k) {
        if (k == unmoved) continue;
        const LaneInts better = errors[k] < codings.error;
        codings.error = choose(better, errors[k], codings.error);
        codings.first[channel] = choose(better, moved.first[k / moves], codings.first[channel]);
        codings.second[channel] = choose(better, moved.second[k % moves], codings.second[channel]);
    }
}

void polish(const ColourBatch& batch, ColourCodings& codings) {
    for (const std::size_t channel : {1U, 0U, 2U}) {
        polishChannel(channel, batch, codings);
    }
}

// ---- what is stored

LaneInts packed(const LaneColour& end) { return toInts(end[0]) << 11 | toInts(end[1]) << 5 | toInts(end[2]); }

LaneInts choicesOf(const ColourBatch& batch, const LanePalette& palette) {
    LaneInts choices{};
    for (std::size_t i = 0; i < texelsPerBlock; ++i) {
        Lanes nearest = lanes(1e30F);
        LaneInts choice{};
        for (std::size_t entry = 0; entry < palette.size(); ++entry) {
            const LaneColour off = between(palette[entry], batch.texels[i]);
            const Lanes distance = dot(off, off);
            const LaneInts nearer = distance < nearest;
            nearest = choose(nearer, distance, nearest);
            choice = choose(nearer, laneInts(static_cast<std::int32_t>(entry)), choice);
        }
        choices |= choice << static_cast<int>(2 * i);
    }
    return choices;
}

StoredColours stored(const ColourBatch& batch, const ColourCodings& codings) {
    constexpr std::int32_t lowBits = 0x55555555;
    const LaneInts a = packed(codings.first), b = packed(codings.second);
    const LaneInts choices = choicesOf(batch, lanePaletteOf({codings.first, codings.second}, codings.four));
    const LaneInts swapped = choose(codings.four, a<b, a> b);
    // With the end points 0 and 1 change places, with those of four colours 2 and 3 do, too.
    const LaneInts others = choices ^ choose(codings.four, laneInts(lowBits), ~(choices >> 1) & lowBits);
    // Equal ends say that there are three colours: the fourth one would be clear.
    const LaneInts all = choose(a == b, LaneInts{}, choose(swapped, others, choices));
    return {choose(swapped, b, a), choose(swapped, a, b), all};
}

// ---- the same twice, for processors with and without registers of eight lanes

[[gnu::flatten]] StoredColours storedNarrow(const ColourBatch& batch, const ColourCodings& codings) {
    return stored(batch, codings);
}
[[gnu::flatten, gnu::target("avx2")]] StoredColours storedWide(const ColourBatch& batch,
                                                               const ColourCodings& codings) {
    return stored(batch, codings);
}
[[gnu::flatten]] void polishNarrow(const ColourBatch& batch, ColourCodings& codings) {
    polish(batch, codings);
}
[[gnu::flatten, gnu::target("avx2")]] void polishWide(const ColourBatch& batch, ColourCodings& codings) {
    polish(batch, codings);
}

} // namespace

void polishColours(const ColourBatch& batch, ColourCodings& codings) {
    hasWideRegisters() ? polishWide(batch, codings) : polishNarrow(batch, codings);
}

StoredColours storedColours(const ColourBatch& batch, const ColourCodings& codings) {
    return hasWideRegisters() ? storedWide(batch, codings) : storedNarrow(batch, codings);
}

} // namespace pelrath
