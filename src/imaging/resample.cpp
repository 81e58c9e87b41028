#include "imaging/resample.hpp"

#include "imaging/filter_mixes.hpp"
#include "imaging/long_work.hpp"
#include "imaging/pixel_lanes.hpp"
#include "imaging/wide_registers.hpp"
#include "platform/runtime_error.hpp"

#include <algorithm>
#include <array>
#include <cstring>
#include <span>
#include <vector>

namespace pelrath {

namespace {

/// Pixels to read and write, below which a thread costs more than it spares.
constexpr std::uint64_t worthAThread = std::uint64_t{1} << 16;

/// Values between the two passes are counted in 1/64 of a step: so they fit 16 bits, and the sums of their
/// products with shares 32, however a filter overshoots.
constexpr int valueBits = 6;

/// Mixes columns first: a row is as short as the output's before rows are mixed. Works on strips that are so
/// narrow that the rows which are mixed stay in a core's own cache, however many they are.
class Resampler {
public:
    Resampler(const Pixels& from, ScaleFilter filter, const Pixels& to, ColourUnderAlpha colours)
        : from_(from), to_(to), columns_(mixesOf(from.sides.width, to.sides.width, filter)),
          rows_(mixesOf(from.sides.height, to.sides.height, filter)),
          weighed_(colours == ColourUnderAlpha::AsSeen && from.channels % 2 == 0) {
        for (const Mix& mix : rows_) {
            mostRows_ = std::max(mostRows_, mix.shares.size() + together);
        }
        constexpr std::size_t cache = std::size_t{1} << 14, narrowest = 16; // pixels
        stripWidth_ = std::max(cache / mostRows_ / 4 * 4, narrowest);
    }

    /// The output rows from `first` to `end`.
    void run(std::size_t first, std::size_t end) const {
        for (std::size_t left = 0; left < columns_.size(); left += stripWidth_) {
            runStrip(std::span{columns_}.subspan(left, std::min(stripWidth_, columns_.size() - left)),
                     to_.values.data() + left * to_.channels, first, end);
        }
    }

private:
    /// Rows at a time, so that no sum waits for the one before it.
    static constexpr std::size_t together = 4;
    /// Values of two pixels, and of these of all rows that are mixed at a time.
    static constexpr std::size_t pairLength = 2 * lanes, groupLength = together * pairLength;
    using Columns = std::span<const Mix>;

    /// The source's rows with a strip's columns mixed, as long as they are needed.
    class ShortRows {
    public:
        ShortRows(const Resampler& resampler, Columns columns)
            : resampler_(resampler), columns_(columns), firstPixel_(columns.front().first),
              length_((columns.size() + 3) / 4 * 4 * lanes), rows_(resampler.mostRows_ * length_) {
            std::size_t end = 0;
            for (const Mix& mix : columns) {
                end = std::max(end, mix.end());
            }
            const std::size_t pairs = (end - firstPixel_ + 1) / 2, channels = resampler.from_.channels;
            bytes_.resize(pairs * 2 * channels + lanes);
            groups_.resize(pairs * groupLength);
        }

        [[nodiscard]] std::size_t length() const { return length_; }

        const std::vector<const std::int16_t*>& upTo(const Mix& mix) {
            done_ = std::max(done_, mix.first);
            while (done_ < mix.end()) {
                readNext();
            }
            used_.clear();
            for (std::size_t row = mix.first; row < mix.end(); ++row) {
                used_.push_back(at(row));
            }
            return used_;
        }

    private:
        std::int16_t* at(std::size_t row) { return &rows_[row % resampler_.mostRows_ * length_]; }
        void readNext() {
            std::array<std::int16_t*, together> mixed{};
            for (std::size_t i = 0; i < together; ++i) {
                // Beyond the last row, what is there is mixed once more, for a share of 0.
                if (done_ + i < resampler_.from_.sides.height) readRow(done_ + i, i);
                mixed[i] = at(done_ + i);
            }
            resampler_.mixColumns(columns_, firstPixel_, groups_.data(), mixed);
            done_ += together;
        }
        void readRow(std::size_t y, std::size_t place) {
            const Pixels& from = resampler_.from_;
            const auto row = from.values.subspan((y * from.sides.width + firstPixel_) * from.channels);
            const auto places = std::span{groups_}.subspan(place * pairLength);
            // Pairs of pixels are read, and a little beyond: what stands there has no share.
            if (row.size() >= bytes_.size()) return resampler_.spread(row.data(), places);
            std::copy(row.begin(), row.end(), bytes_.begin());
            resampler_.spread(bytes_.data(), places);
        }

        const Resampler& resampler_;
        Columns columns_;
        std::size_t firstPixel_; ///< an even one
        std::size_t length_;
        std::vector<std::uint8_t> bytes_;  ///< for a row whose end is the picture's
        std::vector<std::int16_t> groups_; ///< by pairs of pixels, of each those of `together` rows
        std::vector<std::int16_t> rows_;   ///< each at its index modulo their number
        std::vector<const std::int16_t*> used_;
        std::size_t done_ = 0;
    };

    void runStrip(Columns columns, std::uint8_t* out, std::size_t first, std::size_t end) const {
        ShortRows rows{*this, columns};
        std::vector<std::uint8_t> bytes(rows.length() + lanes);
        for (std::size_t y = first; y < end; ++y) {
            mixRows(rows.upTo(rows_[y]), rows_[y].shares, bytes.data(), rows.length());
            std::copy_n(bytes.begin(), columns.size() * to_.channels,
                        out + y * to_.sides.width * to_.channels);
        }
    }

    /// From bytes to values, in pairs of pixels: the first channel of both, the second of both. They are put
    /// in each group's place that `values` begins with.
    void spread(const std::uint8_t* bytes, std::span<std::int16_t> values) const {
        const auto plain = [](Shorts pair) -> Shorts { return pair << valueBits; };
        switch (from_.channels) {
        case 1:
            return spreadAs<1>(bytes, values, plain);
        case 2:
            return weighed_ ? spreadAs<2>(bytes, values, multipliedByAlpha<2>)
                            : spreadAs<2>(bytes, values, plain);
        case 3:
            return spreadAs<3>(bytes, values, plain);
        default:
            return weighed_ ? spreadAs<4>(bytes, values, multipliedByAlpha<4>)
                            : spreadAs<4>(bytes, values, plain);
        }
    }
    template <std::size_t channels, typename ValuesOf>
    static void spreadAs(const std::uint8_t* pixel, std::span<std::int16_t> values, ValuesOf valuesOf) {
        for (std::size_t at = 0; at < values.size(); at += groupLength) {
            const Shorts pair = valuesOf(interleaved(pixel, pixel + channels));
            std::memcpy(&values[at], &pair, sizeof pair);
            pixel += 2 * channels;
        }
    }

    using RowPlaces = std::array<std::int16_t*, together>;

    template <typename Registers>
    [[gnu::always_inline]] static void mixColumnsIn(Columns columns, std::size_t firstPixel,
                                                    const std::int16_t* groups, const RowPlaces& out) {
        using Values = typename Registers::Values;
        using Totals = typename Registers::Totals;
        constexpr std::size_t length = sizeof(Values) / sizeof(std::int16_t),
                              registers = groupLength / length;
        for (std::size_t x = 0; x < columns.size(); ++x) {
            const std::int16_t* from = groups + (columns[x].first - firstPixel) / 2 * groupLength;
            const std::vector<std::int16_t>& shares = columns[x].shares;
            Totals sums[registers]{};
            for (std::size_t i = 0; i < shares.size(); i += 2) {
                const Values pair = pairOf<Registers>(&shares[i]);
#pragma GCC unroll 4
                for (auto& sum : sums) {
                    addProducts(sum, valuesAt<Values>(from), pair);
                    from += length;
                }
            }
#pragma GCC unroll 4
            for (std::size_t row = 0; row < together; row += length / pairLength) {
                Values values;
                pack(shifted(sums[row * pairLength / length], shareBits), Totals{}, values);
                std::memcpy(out[row] + x * lanes, &values, lanes * sizeof(std::int16_t));
                if constexpr (length > pairLength) {
                    std::memcpy(out[row + 1] + x * lanes,
                                reinterpret_cast<const char*>(&values) + sizeof(Shorts),
                                lanes * sizeof(std::int16_t));
                }
            }
        }
    }

    template <typename Registers>
    [[gnu::always_inline]] void mixRowsIn(const std::vector<const std::int16_t*>& rows,
                                          const std::vector<std::int16_t>& shares, std::uint8_t* pixel,
                                          std::size_t rowLength) const {
        using Values = typename Registers::Values;
        using Totals = typename Registers::Totals;
        constexpr std::size_t length = sizeof(Values) / sizeof(std::int16_t);
        for (std::size_t x = 0; x < rowLength; x += length) {
            Totals first{}, second{};
            for (std::size_t i = 0; i < shares.size(); i += 2) {
                const Values pair = pairOf<Registers>(&shares[i]);
                const auto upper = valuesAt<Values>(rows[i] + x), lower = valuesAt<Values>(rows[i + 1] + x);
                Values low, high;
                interleave(upper, lower, low, high);
                addProducts(first, low, pair);
                addProducts(second, high, pair);
            }
            if (weighed_) {
                first = dividedByAlpha(first, to_.channels);
                second = dividedByAlpha(second, to_.channels);
            }
            Values values;
            pack(shifted(first, shareBits + valueBits), shifted(second, shareBits + valueBits), values);
            for (std::size_t half = 0; half < length; half += pairLength) {
                Shorts two;
                std::memcpy(&two, reinterpret_cast<const std::int16_t*>(&values) + half, sizeof two);
                const std::uint64_t bytes = packedBytes(two);
                // The lanes beyond the channels give way to the next pixel.
                std::memcpy(pixel, &bytes, lanes);
                std::memcpy(pixel + to_.channels, reinterpret_cast<const char*>(&bytes) + lanes, lanes);
                pixel += 2 * to_.channels;
            }
        }
    }

    template <typename Totals>
    [[gnu::always_inline]] static Totals shifted(Totals sums, int bits) {
        const std::int32_t half = 1 << (bits - 1);
        return (sums + half) >> bits;
    }

    /// Sums of colours times alpha and of alphas, both from values of the same scale.
    template <typename Totals>
    [[gnu::always_inline]] static Totals dividedByAlpha(Totals sums, std::size_t channels) {
        for (std::size_t pixel = 0; pixel < sizeof sums / sizeof sums[0]; pixel += lanes) {
            const double alpha = sums[pixel + channels - 1];
            constexpr double least = 0.5 * (1 << (shareBits + valueBits)); // what becomes an alpha of 1
            const double factor = alpha < least ? 0 : 255.0 * (1 << (shareBits + valueBits)) / alpha;
            for (std::size_t i = pixel; i + 1 < pixel + channels; ++i) {
                const double most = 256.0 * (1 << (shareBits + valueBits));
                sums[i] = static_cast<std::int32_t>(std::clamp(sums[i] * factor, 0.0, most));
            }
        }
        return sums;
    }

    void mixColumns(Columns columns, std::size_t firstPixel, const std::int16_t* groups,
                    const RowPlaces& out) const {
#ifdef __SSE2__
        if (wide_) return mixColumnsWide(columns, firstPixel, groups, out);
#endif
        mixColumnsIn<NarrowRegisters>(columns, firstPixel, groups, out);
    }
    void mixRows(const std::vector<const std::int16_t*>& rows, const std::vector<std::int16_t>& shares,
                 std::uint8_t* out, std::size_t rowLength) const {
#ifdef __SSE2__
        if (wide_) return mixRowsWide(rows, shares, out, rowLength);
#endif
        mixRowsIn<NarrowRegisters>(rows, shares, out, rowLength);
    }
#ifdef __SSE2__
    [[gnu::flatten, gnu::target("avx2")]] static void mixColumnsWide(Columns columns, std::size_t firstPixel,
                                                                     const std::int16_t* groups,
                                                                     const RowPlaces& out) {
        mixColumnsIn<WideRegisters>(columns, firstPixel, groups, out);
    }
    [[gnu::flatten, gnu::target("avx2")]] void mixRowsWide(const std::vector<const std::int16_t*>& rows,
                                                           const std::vector<std::int16_t>& shares,
                                                           std::uint8_t* out, std::size_t rowLength) const {
        mixRowsIn<WideRegisters>(rows, shares, out, rowLength);
    }
#endif

    const Pixels& from_;
    const Pixels& to_;
    std::vector<Mix> columns_;
    std::vector<Mix> rows_;
    std::size_t mostRows_ = 0; ///< that are needed at a time
    std::size_t stripWidth_;   ///< a multiple of 4 pixels
    bool weighed_;             ///< colours are multiplied by alpha meanwhile
    bool wide_ = hasWideRegisters();
};

/// Each pixel is one of the source's.
void pick(const Pixels& from, const Pixels& to) {
    const auto places = [](std::uint32_t source, std::uint32_t target) {
        std::vector<std::size_t> chosen(target);
        for (std::uint32_t i = 0; i < target; ++i) {
            chosen[i] = (2 * std::uint64_t{i} + 1) * source / (2 * std::uint64_t{target});
        }
        return chosen;
    };
    const std::vector<std::size_t> columns = places(from.sides.width, to.sides.width);
    std::uint8_t* out = to.values.data();
    for (const std::size_t y : places(from.sides.height, to.sides.height)) {
        const std::uint8_t* const row = from.values.data() + y * from.sides.width * from.channels;
        for (const std::size_t x : columns) {
            out = std::copy_n(row + x * from.channels, from.channels, out);
        }
    }
}

bool isWhole(const Pixels& pixels) {
    return !pixels.values.empty() && pixels.values.size() == pixels.sides.pixels() * pixels.channels;
}

} // namespace

void resample(const Pixels& from, ScaleFilter filter, const Pixels& to, ColourUnderAlpha colours) {
    if (!isWhole(from) || !isWhole(to) || from.channels != to.channels || from.channels > lanes) {
        throw makeError(ErrorNumber::InvalidCall, "resample");
    }
    if (filter == ScaleFilter::Nearest) return pick(from, to);
    const Resampler resampler{from, filter, to, colours};
    const std::uint64_t pixelsARow = (from.sides.pixels() + to.sides.pixels()) / to.sides.height + 1;
    onAllCores(to.sides.height, static_cast<std::size_t>(worthAThread / pixelsARow + 1),
               [&](std::size_t first, std::size_t end) { resampler.run(first, end); });
}

} // namespace pelrath
