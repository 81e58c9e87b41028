#include "imaging/resample.hpp"

#include "imaging/long_work.hpp"
#include "platform/runtime_error.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <numbers>
#include <vector>

namespace pelrath {

namespace {

/// Pixels to read and write, below which a thread costs more than it spares.
constexpr std::uint64_t worthAThread = std::uint64_t{1} << 16;

/// What a source pixel weighs at a distance from the middle, in output pixels and below `radius`.
struct Kernel {
    double radius;
    double (*weightAt)(double distance);
};

double box(double /*x*/) { return 1; }

/// Of degree 1 and 2, the B-splines of H. S. Hou and H. C. Andrews, "Cubic Splines for Image Interpolation
/// and Digital Filtering", IEEE Transactions on Acoustics, Speech, and Signal Processing 26 (1978).
double triangle(double x) { return 1 - x; }
double bell(double x) { return x < 0.5 ? 0.75 - x * x : (1.5 - x) * (1.5 - x) / 2; }

/// The cubic filters of D. P. Mitchell and A. N. Netravali, "Reconstruction Filters in Computer Graphics",
/// SIGGRAPH 1988, by their parameters B and C.
double cubic(double x, double b, double c) {
    if (x < 1) return (((12 - 9 * b - 6 * c) * x + (-18 + 12 * b + 6 * c)) * x * x + (6 - 2 * b)) / 6;
    return (((-b - 6 * c) * x + (6 * b + 30 * c)) * x * x + (-12 * b - 48 * c) * x + (8 * b + 24 * c)) / 6;
}
double bSpline(double x) { return cubic(x, 1, 0); }
double mitchell(double x) { return cubic(x, 1.0 / 3, 1.0 / 3); }

/// C. E. Duchon, "Lanczos Filtering in One and Two Dimensions", Journal of Applied Meteorology 18 (1979).
double lanczos(double x) {
    const auto sinc = [](double angle) { return angle < 1e-9 ? 1 : std::sin(angle) / angle; };
    return sinc(std::numbers::pi * x) * sinc(std::numbers::pi * x / 3);
}

Kernel kernelOf(ScaleFilter filter) {
    switch (filter) {
    case ScaleFilter::Box:
        return {0.5, box};
    case ScaleFilter::Bell:
        return {1.5, bell};
    case ScaleFilter::BSpline:
        return {2, bSpline};
    case ScaleFilter::Lanczos:
        return {3, lanczos};
    case ScaleFilter::Mitchell:
        return {2, mitchell};
    default:
        return {1, triangle};
    }
}

/// The source pixels, from `first` on, that one output pixel is mixed from, and their shares, 1 in all.
struct Mix {
    std::size_t first = 0;
    std::vector<float> shares;

    [[nodiscard]] std::size_t end() const { return first + shares.size(); }
};

/// Of a box, a pixel has the part that lies inside; enlarged, it is the output pixel's own box.
Mix mixAround(double middle, double ratio, double side, ScaleFilter filter) {
    if (ratio == 1) return {static_cast<std::size_t>(middle), {1}};
    const bool box = filter == ScaleFilter::Box;
    const Kernel kernel = kernelOf(filter);
    const double stretch = box ? ratio : std::max(ratio, 1.0);
    const double reach = stretch * kernel.radius;
    const auto first = static_cast<std::size_t>(std::max(middle - reach, 0.0));
    const auto end = static_cast<std::size_t>(std::min(std::ceil(middle + reach), side));
    std::vector<double> weights;
    double sum = 0;
    for (std::size_t i = first; i < end; ++i) {
        const double at = static_cast<double>(i);
        const double distance = std::abs(at + 0.5 - middle);
        const double inside = std::min(at + 1, middle + reach) - std::max(at, middle - reach);
        const double weight = distance < reach ? kernel.weightAt(distance / stretch) : 0;
        weights.push_back(box ? inside : weight);
        sum += weights.back();
    }
    Mix mix{first, {}};
    for (const double weight : weights) {
        mix.shares.push_back(static_cast<float>(weight / sum));
    }
    return mix;
}

/// One for each output column or row.
std::vector<Mix> mixesOf(std::uint32_t from, std::uint32_t to, ScaleFilter filter) {
    const double ratio = 1.0 * from / to;
    std::vector<Mix> mixes;
    for (std::uint32_t i = 0; i < to; ++i) {
        mixes.push_back(mixAround((i + 0.5) * ratio, ratio, from, filter));
    }
    return mixes;
}

constexpr std::size_t lanes = 4; ///< for the channels of a pixel; those that there are not hold anything
using Pixel = float __attribute__((vector_size(lanes * sizeof(float))));
/// Sums that do not wait for one another.
constexpr std::size_t together = 4;

Pixel pixelAt(const float* values) {
    Pixel pixel;
    std::memcpy(&pixel, values, sizeof pixel);
    return pixel;
}

void put(Pixel pixel, float* values) { std::memcpy(values, &pixel, sizeof pixel); }

/// Mixes columns first: a row is as short as the output's before rows are mixed.
class Resampler {
public:
    Resampler(const Pixels& from, ScaleFilter filter, const Pixels& to, ColourUnderAlpha colours)
        : from_(from), to_(to), columns_(mixesOf(from.sides.width, to.sides.width, filter)),
          rows_(mixesOf(from.sides.height, to.sides.height, filter)), rowLength_(to.sides.width * lanes),
          weighed_(colours == ColourUnderAlpha::AsSeen && from.channels % 2 == 0) {}

    /// The output rows from `first` to `end`.
    void run(std::size_t first, std::size_t end) const {
        ShortRows rows{*this};
        std::vector<float> mixed(rowLength_ + together * lanes);
        std::vector<std::uint8_t> bytes(rowLength_ + lanes);
        for (std::size_t y = first; y < end; ++y) {
            mixRows(rows.upTo(rows_[y]), rows_[y].shares, mixed);
            putRow(mixed, bytes, y);
        }
    }

private:
    /// The source's rows with their columns mixed, as long as they are needed.
    class ShortRows {
    public:
        explicit ShortRows(const Resampler& resampler) : resampler_(resampler) {
            whole_.fill(std::vector<float>(resampler.from_.sides.width * resampler.from_.channels + lanes));
            std::size_t longest = 0;
            for (const Mix& mix : resampler.rows_) {
                longest = std::max(longest, mix.shares.size());
            }
            rows_.resize(longest + together - 1, std::vector<float>(resampler.rowLength_ + together * lanes));
        }

        const std::vector<const float*>& upTo(const Mix& mix) {
            done_ = std::max(done_, mix.first);
            while (done_ < mix.end()) {
                readNext();
            }
            used_.clear();
            for (std::size_t row = mix.first; row < mix.end(); ++row) {
                used_.push_back(at(row).data());
            }
            return used_;
        }

    private:
        std::vector<float>& at(std::size_t row) { return rows_[row % rows_.size()]; }
        void readNext() {
            std::array<float*, together> mixed{};
            for (std::size_t i = 0; i < together; ++i) {
                // Beyond the last row, what is there is mixed once more and never used.
                if (done_ + i < resampler_.from_.sides.height) resampler_.readRow(done_ + i, whole_[i]);
                mixed[i] = at(done_ + i).data();
            }
            resampler_.mixColumns(whole_, mixed);
            done_ += together;
        }

        const Resampler& resampler_;
        std::array<std::vector<float>, together> whole_;
        std::vector<std::vector<float>> rows_; ///< each at its index modulo their number
        std::vector<const float*> used_;
        std::size_t done_ = 0;
    };

    void readRow(std::size_t y, std::vector<float>& row) const {
        const std::size_t count = from_.sides.width * from_.channels;
        const std::uint8_t* const values = from_.values.data() + y * count;
        for (std::size_t i = 0; i < count; ++i) {
            row[i] = static_cast<float>(values[i]);
        }
        if (!weighed_) return;
        for (std::size_t i = 0; i < count; i += from_.channels) {
            const float alpha = row[i + from_.channels - 1];
            for (std::size_t channel = 0; channel + 1 < from_.channels; ++channel) {
                row[i + channel] *= alpha;
            }
        }
    }

    /// Of several rows at a time, so that no sum waits for the one before it.
    void mixColumns(const std::array<std::vector<float>, together>& rows,
                    const std::array<float*, together>& out) const {
        for (std::size_t x = 0; x < columns_.size(); ++x) {
            std::size_t at = columns_[x].first * from_.channels;
            Pixel a{}, b{}, c{}, d{};
            for (const float share : columns_[x].shares) {
                a += share * pixelAt(&rows[0][at]);
                b += share * pixelAt(&rows[1][at]);
                c += share * pixelAt(&rows[2][at]);
                d += share * pixelAt(&rows[3][at]);
                at += from_.channels;
            }
            put(a, out[0] + x * lanes);
            put(b, out[1] + x * lanes);
            put(c, out[2] + x * lanes);
            put(d, out[3] + x * lanes);
        }
    }

    void mixRows(const std::vector<const float*>& rows, const std::vector<float>& shares,
                 std::vector<float>& out) const {
        for (std::size_t x = 0; x < rowLength_; x += together * lanes) {
            Pixel a{}, b{}, c{}, d{};
            for (std::size_t i = 0; i < shares.size(); ++i) {
                const float* const row = rows[i] + x;
                a += shares[i] * pixelAt(row);
                b += shares[i] * pixelAt(row + lanes);
                c += shares[i] * pixelAt(row + 2 * lanes);
                d += shares[i] * pixelAt(row + 3 * lanes);
            }
            put(a, &out[x]);
            put(b, &out[x + lanes]);
            put(c, &out[x + 2 * lanes]);
            put(d, &out[x + 3 * lanes]);
        }
    }

    void putRow(const std::vector<float>& row, std::vector<std::uint8_t>& bytes, std::size_t y) const {
        for (std::size_t x = 0; x < to_.sides.width; ++x) {
            // The lanes beyond the channels give way to the next pixel.
            const PixelBytes pixel = bytesOf(pixelAt(&row[x * lanes]));
            std::memcpy(&bytes[x * to_.channels], &pixel, sizeof pixel);
        }
        const std::size_t count = to_.sides.width * to_.channels;
        std::copy_n(bytes.begin(), count, to_.values.begin() + static_cast<std::ptrdiff_t>(y * count));
    }

    using PixelBytes = std::uint8_t __attribute__((vector_size(lanes)));
    [[nodiscard]] PixelBytes bytesOf(Pixel pixel) const {
        if (weighed_) {
            const float alpha = pixel[to_.channels - 1];
            pixel *= alpha < 0.5F ? 0.0F : 1 / alpha;
            pixel[to_.channels - 1] = alpha;
        }
        pixel += 0.5F;
        pixel = pixel > 0.0F ? pixel : Pixel{};
        pixel = pixel < 255.0F ? pixel : Pixel{} + 255.0F;
        using Whole = std::int32_t __attribute__((vector_size(sizeof(Pixel))));
        return __builtin_convertvector(__builtin_convertvector(pixel, Whole), PixelBytes);
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
