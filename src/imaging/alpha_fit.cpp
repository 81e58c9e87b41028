#include "imaging/alpha_fit.hpp"

#include <utility>

namespace pelrath {

namespace {

/// What a try of two end points leaves, and the line through the values by their entries' numbers.
struct Trial {
    Lanes low;
    Lanes high;
    Lanes error{};
    Lanes start{};
    Lanes slope{};
};

/// Of the values between the end points; six stand for eight where `eight` is false.
template <bool eight>
Trial tryEnds(const AlphaBatch& batch, Lanes low, Lanes high) {
    constexpr float steps = eight ? 7 : 5;
    constexpr float cutOff = (steps - 1) / (2 * steps); // decoders cut to whole values
    const Lanes length = high - low, scale = steps / most(length, lanes(1)), slope = length * (1 / steps);
    Trial trial{.low = low, .high = high};
    Lanes weights{}, count{}, squares{}, weighed{}, sum{};
    for (std::size_t i = 0; i < batch.values.size(); ++i) {
        const Lanes value = batch.values[i];
        const Lanes entry = cut(within((value - low + cutOff) * scale + 0.5F, 0.5F, steps + 0.5F));
        const Lanes off = value - low - cut(entry * slope + 0.01F);
        Lanes distance = off * off, weight = batch.weights[i];
        Lanes counting = weight;
        if constexpr (!eight) {
            const Lanes fixed = least(value * value, (255 - value) * (255 - value));
            counting = choose(fixed < distance, lanes(0), weight);
            distance = least(distance, fixed);
        }
        trial.error += weight * distance;
        weights += counting;
        const Lanes share = counting * entry;
        count += share;
        squares += share * entry;
        weighed += share * value;
        sum += counting * value;
    }
    const Lanes all = most(weights, lanes(1));
    const Lanes spread = squares - count * count / all;
    const LaneInts solvable = spread > 1e-3F;
    trial.slope = choose(solvable, (weighed - count * sum / all) / most(spread, lanes(1e-3F)), slope);
    trial.start = (sum - trial.slope * count) / all + cutOff;
    return trial;
}

struct Best {
    Lanes low{}, high{};
    Lanes error = lanes(1e30F);

    void offer(const Trial& trial) {
        const LaneInts better = trial.error < error;
        error = choose(better, trial.error, error);
        low = choose(better, trial.low, low);
        high = choose(better, trial.high, high);
    }
};

/// The smallest and the largest value among those that lie between two limits.
std::pair<Lanes, Lanes> rangeOf(const AlphaBatch& batch, float from, float to) {
    Lanes low = lanes(255), high{};
    for (std::size_t i = 0; i < batch.values.size(); ++i) {
        const Lanes value = batch.values[i];
        const LaneInts counts = (value >= from) & (value <= to) & (batch.weights[i] > 0);
        low = choose(counts, least(low, value), low);
        high = choose(counts, most(high, value), high);
    }
    return {least(low, high), high};
}

template <bool eight>
void refine(const AlphaBatch& batch, Lanes low, Lanes high, Best& best) {
    constexpr float steps = eight ? 7 : 5;
    for (int round = 0; round < 3; ++round) {
        const Trial trial = tryEnds<eight>(batch, low, high);
        best.offer(trial);
        low = cut(within(trial.start + 0.5F, 0.5F, 255.5F));
        high = most(cut(within(trial.start + trial.slope * steps + 0.5F, 0.5F, 255.5F)), low);
    }
    best.offer(tryEnds<eight>(batch, low, high));
}

template <bool eight>
void polish(const AlphaBatch& batch, Best& best) {
    constexpr std::pair<float, float> moves[] = {{-1, -1}, {-1, 0}, {-1, 1}, {0, -1},
                                                 {0, 1},   {1, -1}, {1, 0},  {1, 1}};
    for (int sweep = 0; sweep < 2; ++sweep) {
        const Best from = best;
        for (const auto& [down, up] : moves) {
            const Lanes low = within(from.low + down, 0, 255);
            best.offer(tryEnds<eight>(batch, low, most(within(from.high + up, 0, 255), low)));
        }
    }
}

AlphaCodings fit(const AlphaBatch& batch) {
    Best eight, six;
    const auto [lowest, highest] = rangeOf(batch, 0, 255);
    refine<true>(batch, lowest, highest, eight);
    const Lanes inwards = (highest - lowest) * (1 / 16.0F);
    refine<true>(batch, cut(lowest + inwards), cut(highest - inwards), eight);
    polish<true>(batch, eight);
    for (const float margin : {1.0F, 16.0F}) {
        const auto [low, high] = rangeOf(batch, margin, 255 - margin);
        refine<false>(batch, low, high, six);
    }
    polish<false>(batch, six);
    // Eight need end points that differ.
    const LaneInts better = (eight.error < six.error) & (eight.low < eight.high);
    return {better, choose(better, eight.low, six.low), choose(better, eight.high, six.high),
            choose(better, eight.error, six.error)};
}

[[gnu::flatten]] AlphaCodings fitNarrow(const AlphaBatch& batch) { return fit(batch); }
[[gnu::flatten, gnu::target("avx2")]] AlphaCodings fitWide(const AlphaBatch& batch) { return fit(batch); }

} // namespace

AlphaCodings fitAlphas(const AlphaBatch& batch) {
    return hasWideRegisters() ? fitWide(batch) : fitNarrow(batch);
}

} // namespace pelrath
