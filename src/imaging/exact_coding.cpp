#include "imaging/exact_coding.hpp"

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <utility>

namespace pelrath {

namespace {

using Channels = std::array<unsigned, 3>;
constexpr Channels lastSteps{31, 63, 31};

Channels channelsOf(const Texel& texel) { return {texel.red, texel.green, texel.blue}; }

unsigned widened(unsigned step, unsigned last) {
    return last == 63 ? step << 2 | step >> 4 : step << 3 | step >> 2;
}

/// What decoders make of one channel of the end points `a` and `b`, by the entry's number.
unsigned entryBetween(unsigned a, unsigned b, std::size_t entry, bool four) {
    if (entry < 2) return entry == 0 ? a : b;
    if (!four) return (a + b) / 2;
    return entry == 2 ? (2 * a + b) / 3 : (a + 2 * b) / 3;
}

ColourEnds inOrder(const Channels& first, const Channels& second, bool four) {
    const auto packed = [](const Channels& c) {
        return static_cast<std::uint16_t>(c[0] << 11 | c[1] << 5 | c[2]);
    };
    const std::uint16_t a = packed(first), b = packed(second);
    return (a > b) == four ? ColourEnds{a, b} : ColourEnds{b, a};
}

// ---- the nearest to one colour

struct Steps {
    std::uint8_t first;
    std::uint8_t second;
    std::uint16_t error; ///< squared
};

/// For each value of a channel, the steps of end points whose first mixture comes nearest to it; of several,
/// those that lie closest together, whose other colours are near, too.
std::array<Steps, 256> mixtures(unsigned last, bool four) {
    std::array<Steps, 256> nearest{};
    std::array<int, 256> costs;
    costs.fill(INT32_MAX);
    for (unsigned a = 0; a <= last; ++a) {
        for (unsigned b = 0; b <= last; ++b) {
            const auto mixture = static_cast<int>(entryBetween(widened(a, last), widened(b, last), 2, four));
            const int apart = std::abs(static_cast<int>(a) - static_cast<int>(b));
            // Further off there are others.
            for (int value = std::max(mixture - 8, 0); value <= std::min(mixture + 8, 255); ++value) {
                const int off = value - mixture, cost = off * off * 64 + apart;
                const auto at = static_cast<std::size_t>(value);
                if (cost >= costs[at]) continue;
                costs[at] = cost;
                nearest[at] = {static_cast<std::uint8_t>(a), static_cast<std::uint8_t>(b),
                               static_cast<std::uint16_t>(off * off)};
            }
        }
    }
    return nearest;
}

const std::array<Steps, 256>& mixturesOf(unsigned last, bool four) {
    static const std::array tables{mixtures(31, false), mixtures(31, true), mixtures(63, false),
                                   mixtures(63, true)};
    return tables[(last == 63 ? 2U : 0U) + (four ? 1U : 0U)];
}

// ---- palettes that have given colours

/// Some of the places from the first end point to the second one, at which colours are to lie: a bit for
/// each.
using Places = unsigned;

/// The colours' values in one channel, in their order along the line.
struct Wanted {
    std::array<unsigned, 4> values{};
    std::size_t count = 0;
    unsigned last; ///< step
};

/// In how many parts the places divide the line.
constexpr unsigned spansOf(bool four) { return four ? 3 : 2; }

/// The steps of end points that give the values at these places.
class ChannelSolution {
public:
    ChannelSolution(const Wanted& wanted, Places places, bool four)
        : wanted_(wanted), places_(places), four_(four) {
        const unsigned spans = spansOf(four);
        const auto from = static_cast<unsigned>(std::countr_zero(places));
        const auto to = static_cast<unsigned>(std::bit_width(places)) - 1;
        const auto low = static_cast<float>(wanted.values[0]);
        const auto high = static_cast<float>(wanted.values[wanted.count - 1]);
        const float part = (high - low) / static_cast<float>(to - from);
        const float first = low - part * static_cast<float>(from);
        const float second = high + part * static_cast<float>(spans - to);
        found_ = tryAround(first, second);
    }

    [[nodiscard]] bool found() const { return found_; }
    [[nodiscard]] unsigned first() const { return first_; }
    [[nodiscard]] unsigned second() const { return second_; }

private:
    /// What lies between the end points has been cut to whole values: two off is the most that it can do.
    static constexpr float mostOff = 2.1F;

    bool tryAround(float first, float second) {
        for (first_ = stepBelow(first); first_ <= wanted_.last; ++first_) {
            const auto a = static_cast<float>(widened(first_, wanted_.last));
            if (a > first + mostOff) return false;
            if (a < first - mostOff) continue;
            for (second_ = stepBelow(second); second_ <= wanted_.last; ++second_) {
                const auto b = static_cast<float>(widened(second_, wanted_.last));
                if (b > second + mostOff) break;
                if (b >= second - mostOff && givesAll()) return true;
            }
        }
        return false;
    }
    [[nodiscard]] unsigned stepBelow(float value) const {
        const float step = (value - mostOff) * static_cast<float>(wanted_.last) / 255;
        return step <= 1 ? 0 : static_cast<unsigned>(step) - 1;
    }
    [[nodiscard]] bool givesAll() const {
        const unsigned a = widened(first_, wanted_.last), b = widened(second_, wanted_.last);
        std::size_t value = 0;
        for (unsigned left = places_; left != 0; left &= left - 1) {
            const auto place = static_cast<unsigned>(std::countr_zero(left));
            if ((a * (spansOf(four_) - place) + b * place) / spansOf(four_) != wanted_.values[value++])
                return false;
        }
        return true;
    }

    const Wanted& wanted_;
    Places places_;
    bool four_;
    bool found_;
    unsigned first_ = 0;
    unsigned second_ = 0;
};

/// In each channel the colours' values, by the order of those in the channel in which they lie farthest
/// apart. Nothing where two are the same there: colours of one palette differ in every channel whose end
/// points do.
std::optional<std::array<Wanted, 3>> inOrderAlongLine(std::span<const Texel> colours) {
    std::array<Wanted, 3> wanted{};
    std::size_t widest = 0;
    unsigned range = 0;
    for (std::size_t c = 0; c < wanted.size(); ++c) {
        wanted[c].count = colours.size();
        wanted[c].last = lastSteps[c];
        for (std::size_t i = 0; i < colours.size(); ++i) {
            wanted[c].values[i] = channelsOf(colours[i])[c];
        }
        const auto [low, high] = std::minmax_element(
            wanted[c].values.begin(), wanted[c].values.begin() + static_cast<std::ptrdiff_t>(colours.size()));
        if (*high - *low < range) continue;
        range = *high - *low;
        widest = c;
    }
    std::swap(wanted[0], wanted[widest]);
    for (std::size_t i = 1; i < colours.size(); ++i) {
        for (std::size_t j = i; j > 0 && wanted[0].values[j] <= wanted[0].values[j - 1]; --j) {
            if (wanted[0].values[j] == wanted[0].values[j - 1]) return std::nullopt;
            for (Wanted& channel : wanted) {
                std::swap(channel.values[j], channel.values[j - 1]);
            }
        }
    }
    std::swap(wanted[0], wanted[widest]);
    return wanted;
}

std::optional<ColourEnds> endsAt(const std::array<Wanted, 3>& wanted, Places places, bool four) {
    Channels first{}, second{};
    for (std::size_t c = 0; c < wanted.size(); ++c) {
        const ChannelSolution solution{wanted[c], places, four};
        if (!solution.found()) return std::nullopt;
        first[c] = solution.first();
        second[c] = solution.second();
    }
    return inOrder(first, second, four);
}

// ---- alphas

struct Ramp {
    unsigned low;
    unsigned high;
};

/// Whether every value is one of those that decoders place from `low` on in so many steps over `length`.
bool hasAll(std::span<const std::uint8_t> values, unsigned low, unsigned length, unsigned steps) {
    return std::ranges::all_of(values, [&](unsigned value) {
        const unsigned height = value - low, step = (height * steps + length - 1) / length;
        return step <= steps && step * length / steps == height;
    });
}

/// With the lowest value and the highest one so many steps apart.
std::optional<Ramp> rampWith(std::span<const std::uint8_t> values, unsigned steps) {
    if (values.size() > steps + 1) return std::nullopt;
    const unsigned low = values.front(), range = values.back() - low;
    if (range == 0) return Ramp{low, low + (low < 255 ? 1U : 0U)};
    for (unsigned apart = steps; apart >= values.size() - 1; --apart) {
        const unsigned longest = std::min((range + 1) * steps / apart, 255U);
        for (unsigned length = (range - 1) * steps / apart + 1; length <= longest; ++length) {
            for (unsigned below = 0; below <= steps - apart; ++below) {
                const unsigned depth = below * length / steps;
                if (depth > low) break;
                if (low - depth + length > 255) continue;
                if (hasAll(values, low - depth, length, steps))
                    return Ramp{low - depth, low - depth + length};
            }
        }
    }
    return std::nullopt;
}

} // namespace

std::optional<ColourEnds> exactEnds(std::span<const Texel> colours, bool four) {
    const unsigned all = spansOf(four) + 1;
    if (colours.size() < 2 || colours.size() > all) return std::nullopt;
    const auto wanted = inOrderAlongLine(colours);
    for (Places places = 3; wanted && places < 1U << all; ++places) {
        if (static_cast<std::size_t>(std::popcount(places)) != colours.size()) continue;
        if (const auto ends = endsAt(*wanted, places, four)) return ends;
    }
    return std::nullopt;
}

NearestEnds nearestEnds(const Texel& colour, bool four) {
    Channels first{}, second{};
    unsigned error = 0;
    for (std::size_t c = 0; c < first.size(); ++c) {
        const Steps& steps = mixturesOf(lastSteps[c], four)[channelsOf(colour)[c]];
        first[c] = steps.first;
        second[c] = steps.second;
        error += steps.error;
    }
    return {inOrder(first, second, four), error};
}

std::optional<std::uint16_t> exactAlphaEnds(std::span<const std::uint8_t> values) {
    if (const auto ramp = rampWith(values, 7)) {
        return static_cast<std::uint16_t>(ramp->high | ramp->low << 8);
    }
    while (!values.empty() && values.front() == 0) {
        values = values.subspan(1);
    }
    while (!values.empty() && values.back() == 255) {
        values = values.first(values.size() - 1);
    }
    const auto ramp = values.empty() ? Ramp{0, 0} : rampWith(values, 5);
    if (!ramp) return std::nullopt;
    return static_cast<std::uint16_t>(ramp->low | ramp->high << 8);
}

} // namespace pelrath
