#include "imaging/resample.hpp"

#include "imaging/filter_mixes.hpp"
#include "imaging/long_work.hpp"
#include "imaging/pixel_lanes.hpp"
#include "platform/runtime_error.hpp"

#include <algorithm>
#include <array>
#include <cstring>
#include <vector>

namespace pelrath {

namespace {

/// Pixels to read and write, below which a thread costs more than it spares.
constexpr std::uint64_t worthAThread = std::uint64_t{1} << 16;

/// Values between the two passes are counted in 1/64 of a step: so they fit 16 bits, and the sums of their
/// products with shares 32, however a filter overshoots.
constexpr int valueBits = 6;

/// Mixes columns first: a row is as short as the output's before rows are mixed.
class Resampler {
public:
    Resampler(const Pixels& from, ScaleFilter filter, const Pixels& to, ColourUnderAlpha colours)
        : from_(from), to_(to), columns_(mixesOf(from.sides.width, to.sides.width, filter)),
          rows_(mixesOf(from.sides.height, to.sides.height, filter)),
          rowLength_((to.sides.width + 1) / 2 * 2 * lanes),
          weighed_(colours == ColourUnderAlpha::AsSeen && from.channels % 2 == 0) {}

    /// The output rows from `first` to `end`.
    void run(std::size_t first, std::size_t end) const {
        ShortRows rows{*this};
        std::vector<std::uint8_t> bytes(rowLength_ + lanes);
        const std::size_t count = to_.sides.width * to_.channels;
        for (std::size_t y = first; y < end; ++y) {
            mixRows(rows.upTo(rows_[y]), rows_[y].shares, bytes);
            std::copy_n(bytes.begin(), count, to_.values.begin() + static_cast<std::ptrdiff_t>(y * count));
        }
    }

private:
    /// Rows at a time, so that no sum waits for the one before it.
    static constexpr std::size_t together = 4;
    using Row = std::vector<std::int16_t>;

    /// The source's rows with their columns mixed, as long as they are needed.
    class ShortRows {
    public:
        explicit ShortRows(const Resampler& resampler)
            : resampler_(resampler),
              bytes_(resampler.from_.sides.width * resampler.from_.channels + 2 * lanes) {
            whole_.fill(Row((resampler.from_.sides.width + 1) / 2 * 2 * lanes));
            std::size_t longest = 0;
            for (const Mix& mix : resampler.rows_) {
                longest = std::max(longest, mix.shares.size());
            }
            rows_.resize(longest + together, Row(resampler.rowLength_));
        }

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
        std::int16_t* at(std::size_t row) { return rows_[row % rows_.size()].data(); }
        void readNext() {
            std::array<std::int16_t*, together> mixed{};
            for (std::size_t i = 0; i < together; ++i) {
                // Beyond the last row, what is there is mixed once more, for a share of 0.
                if (done_ + i < resampler_.from_.sides.height) readRow(done_ + i, whole_[i]);
                mixed[i] = at(done_ + i);
            }
            resampler_.mixColumns(whole_, mixed);
            done_ += together;
        }
        void readRow(std::size_t y, Row& row) {
            const std::size_t count = resampler_.from_.sides.width * resampler_.from_.channels;
            std::copy_n(resampler_.from_.values.data() + y * count, count, bytes_.begin());
            resampler_.spread(bytes_, row);
        }

        const Resampler& resampler_;
        std::vector<std::uint8_t> bytes_; ///< with room behind, where pairs of pixels are read
        std::array<Row, together> whole_;
        std::vector<Row> rows_; ///< each at its index modulo their number
        std::vector<const std::int16_t*> used_;
        std::size_t done_ = 0;
    };

    /// From bytes to values, in pairs of pixels: the first channel of both, the second of both.
    void spread(const std::vector<std::uint8_t>& bytes, Row& row) const {
        const std::size_t channels = from_.channels;
        const auto each = [&](auto valuesOf) {
            const std::uint8_t* pixel = bytes.data();
            for (std::int16_t* values = row.data(); values != row.data() + row.size(); values += 2 * lanes) {
                const Shorts pair = valuesOf(interleaved(pixel, pixel + channels));
                std::memcpy(values, &pair, sizeof pair);
                pixel += 2 * channels;
            }
        };
        if (weighed_) return each([&](Shorts pair) { return multipliedByAlpha(pair, channels); });
        each([](Shorts pair) { return pair << valueBits; });
    }

    void mixColumns(const std::array<Row, together>& rows,
                    const std::array<std::int16_t*, together>& out) const {
        for (std::size_t x = 0; x < columns_.size(); ++x) {
            std::size_t at = columns_[x].first * lanes;
            const std::vector<std::int16_t>& shares = columns_[x].shares;
            Sums a{}, b{}, c{}, d{};
            for (std::size_t i = 0; i < shares.size(); i += 2) {
                const Shorts pair = pairOf(&shares[i]);
                a += addedProducts(shortsAt(&rows[0][at]), pair);
                b += addedProducts(shortsAt(&rows[1][at]), pair);
                c += addedProducts(shortsAt(&rows[2][at]), pair);
                d += addedProducts(shortsAt(&rows[3][at]), pair);
                at += 2 * lanes;
            }
            putValues(a, out[0] + x * lanes);
            putValues(b, out[1] + x * lanes);
            putValues(c, out[2] + x * lanes);
            putValues(d, out[3] + x * lanes);
        }
    }

    void mixRows(const std::vector<const std::int16_t*>& rows, const std::vector<std::int16_t>& shares,
                 std::vector<std::uint8_t>& out) const {
        std::uint8_t* pixel = out.data();
        for (std::size_t x = 0; x < rowLength_; x += 2 * lanes) {
            Sums first{}, second{};
            for (std::size_t i = 0; i < shares.size(); i += 2) {
                const Shorts pair = pairOf(&shares[i]);
                const Shorts upper = shortsAt(rows[i] + x), lower = shortsAt(rows[i + 1] + x);
                first += addedProducts(lowInterleaved(upper, lower), pair);
                second += addedProducts(highInterleaved(upper, lower), pair);
            }
            if (weighed_) {
                first = dividedByAlpha(first, to_.channels);
                second = dividedByAlpha(second, to_.channels);
            }
            std::array<std::uint8_t, 2 * lanes> bytes;
            putBytes(packed(shifted(first, shareBits + valueBits), shifted(second, shareBits + valueBits)),
                     bytes.data());
            // The lanes beyond the channels give way to the next pixel.
            std::memcpy(pixel, bytes.data(), lanes);
            std::memcpy(pixel + to_.channels, bytes.data() + lanes, lanes);
            pixel += 2 * to_.channels;
        }
    }

    static Sums shifted(Sums sums, int bits) {
        const std::int32_t half = 1 << (bits - 1);
        return (sums + half) >> bits;
    }

    static void putValues(Sums sums, std::int16_t* values) {
        const Shorts narrow = packed(shifted(sums, shareBits), Sums{});
        std::memcpy(values, &narrow, lanes * sizeof *values);
    }

    /// Sums of colours times alpha and of alphas, both from values of the same scale.
    static Sums dividedByAlpha(Sums sums, std::size_t channels) {
        const double alpha = sums[channels - 1];
        constexpr double least = 0.5 * (1 << (shareBits + valueBits)); // what becomes an alpha of 1
        const double factor = alpha < least ? 0 : 255.0 * (1 << (shareBits + valueBits)) / alpha;
        for (std::size_t i = 0; i + 1 < channels; ++i) {
            const double most = 256.0 * (1 << (shareBits + valueBits));
            sums[i] = static_cast<std::int32_t>(std::clamp(sums[i] * factor, 0.0, most));
        }
        return sums;
    }

    const Pixels& from_;
    const Pixels& to_;
    std::vector<Mix> columns_;
    std::vector<Mix> rows_;
    std::size_t rowLength_; ///< of mixed columns
    bool weighed_;          ///< colours are multiplied by alpha meanwhile
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
