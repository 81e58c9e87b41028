#include "imaging/colour_fit.hpp"

#include "imaging/lane_palette.hpp"

#include <span>
#include <utility>

namespace pelrath {

namespace {

/// How many colours a palette has. The fourth entry of one of three is clear, and is never chosen here.
enum class PaletteKind { Four, Three };

constexpr std::size_t entriesOf(PaletteKind kind) { return kind == PaletteKind::Four ? 4 : 3; }
/// The first end point's share in each entry.
template <PaletteKind kind>
constexpr std::array<float, 4> shares = kind == PaletteKind::Four ? std::array{1.0F, 0.0F, 2 / 3.0F, 1 / 3.0F}
                                                                  : std::array{1.0F, 0.0F, 0.5F, 0.0F};
/// Decoders cut what lies between the end points to whole steps: so much is lost on an average.
template <PaletteKind kind>
constexpr float cutOff = kind == PaletteKind::Four ? 1 / 3.0F : 0.25F;

// ---- the line that the colours lie along

/// Where the texels lie on the line; 0 is their middle.
using Places = std::array<Lanes, texelsPerBlock>;

struct Line {
    LaneColour middle{};
    LaneColour direction;
    Lanes scale;   ///< makes a place along the direction, times it, the way there
    Lanes squares; ///< the squared distances of all texels from the middle
    Places places;
};

/// The covariance matrix: its diagonal; red with green, green with blue, blue with red.
struct Spread {
    LaneColour own{};
    LaneColour mixed{};

    [[nodiscard]] std::array<LaneColour, 3> rows() const {
        return {LaneColour{own[0], mixed[0], mixed[2]}, LaneColour{mixed[0], own[1], mixed[1]},
                LaneColour{mixed[2], mixed[1], own[2]}};
    }
};

LaneColour longestDirection(const Spread& spread) {
    const auto [red, green, blue] = spread.rows();
    const auto& own = spread.own;
    const LaneInts greenest = (own[1] > own[0]) & (own[1] >= own[2]);
    const LaneInts bluest = (own[2] > own[0]) & (own[2] > own[1]);
    LaneColour v;
    for (std::size_t c = 0; c < colourChannels; ++c) { // a row that is not at right angles to what is wanted
        v[c] = choose(bluest, blue[c], choose(greenest, green[c], red[c]));
    }
    for (int i = 0; i < 6; ++i) {
        v = {dot(v, red), dot(v, green), dot(v, blue)};
        const Lanes longest = most(most(most(v[0], -v[0]), most(v[1], -v[1])), most(v[2], -v[2]));
        const Lanes scale = 1 / most(longest, lanes(1e-20F));
        for (Lanes& channel : v) {
            channel *= scale;
        }
    }
    const Lanes scale = 1 / most(dot(v, v), lanes(1e-20F));
    return {v[0] * scale, v[1] * scale, v[2] * scale};
}

Line lineThrough(const ColourBatch& batch) {
    Line line;
    Lanes weights{};
    for (std::size_t i = 0; i < texelsPerBlock; ++i) {
        weights += batch.weights[i];
        for (std::size_t c = 0; c < colourChannels; ++c) {
            line.middle[c] += batch.weights[i] * batch.texels[i][c];
        }
    }
    for (Lanes& channel : line.middle) {
        channel /= weights;
    }
    Spread spread;
    for (std::size_t i = 0; i < texelsPerBlock; ++i) {
        const LaneColour off = between(line.middle, batch.texels[i]);
        for (std::size_t c = 0; c < colourChannels; ++c) {
            const Lanes weighed = batch.weights[i] * off[c];
            spread.own[c] += weighed * off[c];
            spread.mixed[c] += weighed * off[(c + 1) % 3];
        }
    }
    line.direction = longestDirection(spread);
    line.scale = 1 / most(dot(line.direction, line.direction), lanes(1e-20F));
    line.squares = spread.own[0] + spread.own[1] + spread.own[2];
    for (std::size_t i = 0; i < texelsPerBlock; ++i) {
        line.places[i] = dot(between(line.middle, batch.texels[i]), line.direction);
    }
    return line;
}

// ---- where on the line the palette fits best

struct Segment {
    Lanes explained = lanes(-1); ///< of the squared distances from the middle
    Lanes from{}, to{};
};

/// Moves the ends to where they fit the places nearest to each entry, twice.
template <PaletteKind kind>
void settle(const Places& places, const Places& weights, Lanes all, Lanes from, Lanes to, Segment& best) {
    constexpr float spans = entriesOf(kind) - 1;
    for (int round = 0; round < 2; ++round) {
        const Lanes length = to - from;
        const Lanes scale = spans / choose(length * length > 1e-12F, length, lanes(1));
        Lanes count{}, squares{}, weighed{};
        for (std::size_t i = 0; i < texelsPerBlock; ++i) {
            const Lanes entry = cut(within((places[i] - from) * scale + 0.5F, 0.5F, spans + 0.5F));
            const Lanes share = weights[i] * entry;
            count += share;
            squares += share * entry;
            weighed += share * places[i];
        }
        const Lanes middle = count / all;
        const Lanes slope = weighed / most(squares - count * middle, lanes(1e-6F));
        const Lanes explained = weighed * slope;
        from = middle * -slope;
        to = from + slope * spans;
        const LaneInts better = explained > best.explained;
        best.explained = choose(better, explained, best.explained);
        best.from = choose(better, from, best.from);
        best.to = choose(better, to, best.to);
    }
}

template <PaletteKind kind>
Segment bestSegment(const Line& line, const std::array<Lanes, texelsPerBlock>& weights) {
    // By how much of the places' length the ends are moved inwards at first.
    constexpr std::pair<float, float> starts[] = {{0, 0}, {0.1F, 0.1F}, {0, 0.2F}, {0.2F, 0}};
    Lanes low = line.places[0], high = line.places[0];
    for (const Lanes& place : line.places) {
        low = least(low, place);
        high = most(high, place);
    }
    Lanes all{};
    for (const Lanes& weight : weights) {
        all += weight;
    }
    Segment best;
    const Lanes length = high - low;
    constexpr std::size_t worthTrying = kind == PaletteKind::Four ? 4 : 2;
    for (const auto& [below, above] : std::span{starts}.template first<worthTrying>()) {
        settle<kind>(line.places, weights, all, low + length * below, high - length * above, best);
    }
    return best;
}

// ---- end points that can be stored

Lanes nearestStep(Lanes value, std::size_t channel) {
    return cut(within(value * (lastSteps[channel] / 255) + 0.5F, 0.5F, lastSteps[channel] + 0.5F));
}

Ends endsAlong(const Line& line, const Segment& segment) {
    Ends ends;
    for (std::size_t c = 0; c < colourChannels; ++c) {
        const Lanes unit = line.direction[c] * line.scale;
        ends.first[c] = nearestStep(line.middle[c] + unit * segment.from, c);
        ends.second[c] = nearestStep(line.middle[c] + unit * segment.to, c);
    }
    return ends;
}

/// The least squares' sums over the texels, each with its entry's shares of the end points.
struct Fit {
    Lanes first{};  ///< squared shares of the first end point
    Lanes second{}; ///< of the second one
    Lanes both{};   ///< products of the two
    LaneColour ofFirst{};
    LaneColour ofSecond{};
};

/// Looks in one channel for the steps of both end points that leave the smallest error.
struct ChannelSearch {
    std::size_t channel;
    Lanes ownSquares, otherSquares, both, ofOwn, ofOther;
    Lanes error = lanes(1e30F);
    Lanes own{}, other{};

    /// Offers a step of the own end point with the best one of the other for it.
    void offer(Lanes step, Lanes otherwise) {
        const Lanes a = widened(step, channel);
        const Lanes wanted = (ofOther - both * a) / most(otherSquares, lanes(1e-6F));
        const Lanes partner = nearestStep(choose(otherSquares > 1e-3F, wanted, otherwise), channel);
        const Lanes b = widened(partner, channel);
        const Lanes left =
            a * (ownSquares * a - 2 * ofOwn) + b * (otherSquares * b - 2 * ofOther) + 2 * a * b * both;
        const LaneInts better = left < error;
        error = choose(better, left, error);
        own = choose(better, step, own);
        other = choose(better, partner, other);
    }
    /// The steps below and above a value of the own end point.
    void offerAround(Lanes value, Lanes otherwise) {
        const Lanes below = cut(within(value * (lastSteps[channel] / 255), 0, lastSteps[channel] - 1));
        offer(below, otherwise);
        offer(below + 1, otherwise);
    }
};

/// `before`, where a fit does not say anything because all texels have the same entry.
Ends bestEnds(const Fit& fit, const Ends& before) {
    const Lanes determinant = fit.first * fit.second - fit.both * fit.both;
    const LaneInts solvable = determinant > 1e-3F;
    const Lanes scale = 1 / choose(solvable, determinant, lanes(1));
    Ends ends;
    for (std::size_t c = 0; c < colourChannels; ++c) {
        const Lanes a = (fit.ofFirst[c] * fit.second - fit.ofSecond[c] * fit.both) * scale;
        const Lanes b = (fit.ofSecond[c] * fit.first - fit.ofFirst[c] * fit.both) * scale;
        ChannelSearch forth{c, fit.first, fit.second, fit.both, fit.ofFirst[c], fit.ofSecond[c]};
        ChannelSearch back{c, fit.second, fit.first, fit.both, fit.ofSecond[c], fit.ofFirst[c]};
        forth.offerAround(a, b);
        back.offerAround(b, a);
        const LaneInts backwards = back.error < forth.error;
        ends.first[c] = choose(solvable, choose(backwards, back.other, forth.own), before.first[c]);
        ends.second[c] = choose(solvable, choose(backwards, back.own, forth.other), before.second[c]);
    }
    return ends;
}

// ---- trying end points

struct Trial {
    Ends ends;
    Lanes error{};
    Fit next; ///< to each texel's nearest entry
};

template <PaletteKind kind>
Trial tryEnds(const ColourBatch& batch, const Ends& ends) {
    const LanePalette palette = lanePaletteOf(ends, laneInts(kind == PaletteKind::Four ? -1 : 0));
    Trial trial{.ends = ends, .error = {}, .next = {}};
    Fit& fit = trial.next;
    Lanes count{}, shareSum{};
    LaneColour all{};
    for (std::size_t i = 0; i < texelsPerBlock; ++i) {
        const LaneColour& texel = batch.texels[i];
        Lanes nearest = lanes(1e30F), share{};
        for (std::size_t entry = 0; entry < entriesOf(kind); ++entry) {
            const LaneColour off = between(palette[entry], texel);
            const Lanes distance = dot(off, off);
            const LaneInts nearer = distance < nearest;
            nearest = choose(nearer, distance, nearest);
            share = choose(nearer, lanes(shares<kind>[entry]), share);
        }
        const Lanes weight = batch.weights[i];
        const Lanes weighted = weight * share, mixed = weighted * (1 - share);
        const Lanes cutAway = choose(mixed > 0, lanes(cutOff<kind>), lanes(0));
        trial.error += weight * nearest;
        count += weight;
        shareSum += weighted;
        fit.both += mixed;
        for (std::size_t c = 0; c < colourChannels; ++c) {
            const Lanes wanted = texel[c] + cutAway;
            fit.ofFirst[c] += weighted * wanted;
            all[c] += weight * wanted;
        }
    }
    fit.first = shareSum - fit.both;
    fit.second = count - shareSum - fit.both;
    fit.ofSecond = between(fit.ofFirst, all);
    return trial;
}

void keepBetter(ColourCodings& best, const Trial& other) {
    const LaneInts better = other.error < best.error;
    best.error = choose(better, other.error, best.error);
    for (std::size_t c = 0; c < colourChannels; ++c) {
        best.first[c] = choose(better, other.ends.first[c], best.first[c]);
        best.second[c] = choose(better, other.ends.second[c], best.second[c]);
    }
}

/// Tries palettes that have the colours of the end points elsewhere, where they may come nearer to what can
/// be stored.
template <PaletteKind kind>
void tryBetween(const ColourBatch& batch, const Fit& fit, ColourCodings& best) {
    // By how much of its length the line is lengthened at either end.
    constexpr std::pair<float, float> ofFour[] = {{1, 1}, {0.5F, 0}, {0, 0.5F}}, ofThree[] = {{1, 0}, {0, 1}};
    const Lanes scale = 1 / most(fit.first * fit.second - fit.both * fit.both, lanes(1e-3F));
    for (const auto& [before, behind] :
         kind == PaletteKind::Four ? std::span<const std::pair<float, float>>{ofFour} : ofThree) {
        Ends ends;
        for (std::size_t c = 0; c < colourChannels; ++c) {
            const Lanes a = (fit.ofFirst[c] * fit.second - fit.ofSecond[c] * fit.both) * scale;
            const Lanes b = (fit.ofSecond[c] * fit.first - fit.ofFirst[c] * fit.both) * scale;
            ends.first[c] = nearestStep(a + (a - b) * before, c);
            ends.second[c] = nearestStep(b + (b - a) * behind, c);
        }
        keepBetter(best, tryEnds<kind>(batch, ends));
    }
}

template <PaletteKind kind>
ColourCodings fit(const ColourBatch& batch, const Line& line, const Segment& segment) {
    Ends ends = endsAlong(line, segment);
    Trial trial = tryEnds<kind>(batch, ends);
    ColourCodings best{laneInts(kind == PaletteKind::Four ? -1 : 0), ends.first, ends.second, trial.error};
    ends = bestEnds(trial.next, ends);
    trial = tryEnds<kind>(batch, ends);
    keepBetter(best, trial);
    // Hardly any texel has another colour than these two: at most four (of four colours) or three.
    const LaneInts twoColours = (trial.next.both < 1) & (trial.next.first * trial.next.second > 0);
    if (anyOf(twoColours & (best.error > 0))) tryBetween<kind>(batch, trial.next, best);
    return best;
}

void keepBetter(ColourCodings& best, const ColourCodings& other) {
    const LaneInts better = other.error < best.error;
    best.four = choose(better, other.four, best.four);
    best.error = choose(better, other.error, best.error);
    for (std::size_t c = 0; c < colourChannels; ++c) {
        best.first[c] = choose(better, other.first[c], best.first[c]);
        best.second[c] = choose(better, other.second[c], best.second[c]);
    }
}

ColourCodings fit(const ColourBatch& batch, Palettes palettes) {
    const Line line = lineThrough(batch);
    if (palettes == Palettes::Three) {
        return fit<PaletteKind::Three>(batch, line, bestSegment<PaletteKind::Three>(line, batch.weights));
    }
    ColourCodings best =
        fit<PaletteKind::Four>(batch, line, bestSegment<PaletteKind::Four>(line, batch.weights));
    if (palettes == Palettes::Four || !anyOf(best.error > 0)) return best;
    const Segment segment = bestSegment<PaletteKind::Three>(line, batch.weights);
    // What ends of any colour would leave is hardly ever more than what those that can be stored leave.
    const Lanes left = line.squares - segment.explained * line.scale;
    if (anyOf(left < best.error)) keepBetter(best, fit<PaletteKind::Three>(batch, line, segment));
    return best;
}

// ---- the same twice, for processors with and without registers of eight lanes

[[gnu::flatten]] ColourCodings fitNarrow(const ColourBatch& batch, Palettes palettes) {
    return fit(batch, palettes);
}
[[gnu::flatten, gnu::target("avx2")]] ColourCodings fitWide(const ColourBatch& batch, Palettes palettes) {
    return fit(batch, palettes);
}
} // namespace

ColourCodings fitColours(const ColourBatch& batch, Palettes palettes) {
    return hasWideRegisters() ? fitWide(batch, palettes) : fitNarrow(batch, palettes);
}

} // namespace pelrath
