#include "imaging/resample.hpp"

#include "platform/runtime_error.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <vector>

namespace pelrath {

namespace {

/// What a source pixel weighs at a distance from the middle, in output pixels and below `radius`.
struct Kernel {
    double radius;
    double (*weightAt)(double distance);
};

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
};

Mix mixAround(double middle, double stretch, double side, ScaleFilter filter) {
    if (filter == ScaleFilter::Nearest) return {static_cast<std::size_t>(middle), {1}};
    const bool box = filter == ScaleFilter::Box;
    const Kernel kernel = kernelOf(filter);
    const double reach = stretch * (box ? 0.5 : kernel.radius);
    const auto first = static_cast<std::size_t>(std::max(middle - reach, 0.0));
    const auto end = static_cast<std::size_t>(std::min(std::ceil(middle + reach), side));
    std::vector<double> weights;
    double sum = 0;
    for (std::size_t i = first; i < end; ++i) {
        const double distance = std::abs(static_cast<double>(i) + 0.5 - middle);
        // Of a box, a pixel has the part that lies inside.
        const double part = std::clamp(reach + 0.5 - distance, 0.0, 1.0);
        const double weight = distance < reach ? kernel.weightAt(distance / stretch) : 0;
        weights.push_back(box ? part : weight);
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
        mixes.push_back(mixAround((i + 0.5) * ratio, std::max(ratio, 1.0), from, filter));
    }
    return mixes;
}

std::uint8_t toByte(float value) { return static_cast<std::uint8_t>(std::clamp(value + 0.5F, 0.0F, 255.0F)); }

/// Mixes rows into one of the same width, and the pixels of that one into the output's.
template <std::size_t channels>
class Resampler {
public:
    Resampler(const Pixels& from, const Pixels& to)
        : from_(from), to_(to), rowLength_(from.sides.width * channels), row_(rowLength_),
          seen_(hasClearPixels() ? rowLength_ : 0) {}

    void run(ScaleFilter filter) {
        const std::vector<Mix> columns = mixesOf(from_.sides.width, to_.sides.width, filter);
        std::uint8_t* out = to_.values.data();
        for (const Mix& rows : mixesOf(from_.sides.height, to_.sides.height, filter)) {
            mixRows(rows);
            for (const Mix& column : columns) {
                putPixel(column, out);
                out += channels;
            }
        }
    }

private:
    static constexpr std::size_t alphaAt = channels - 1;

    [[nodiscard]] bool hasClearPixels() const {
        if (channels % 2 != 0) return false;
        for (std::size_t i = alphaAt; i < from_.values.size(); i += channels) {
            if (from_.values[i] != 255) return true;
        }
        return false;
    }

    void mixRows(const Mix& mix) {
        std::fill(row_.begin(), row_.end(), 0.0F);
        std::fill(seen_.begin(), seen_.end(), 0.0F);
        const std::uint8_t* values = from_.values.data() + mix.first * rowLength_;
        for (const float share : mix.shares) {
            for (std::size_t i = 0; i < rowLength_; ++i) {
                row_[i] += share * static_cast<float>(values[i]);
            }
            if (!seen_.empty()) addSeen(share, values);
            values += rowLength_;
        }
    }

    void addSeen(float share, const std::uint8_t* values) {
        for (std::size_t i = 0; i < rowLength_; i += channels) {
            const float seen = share * static_cast<float>(values[i + alphaAt]);
            for (std::size_t channel = 0; channel < channels; ++channel) {
                seen_[i + channel] += seen * static_cast<float>(values[i + channel]);
            }
        }
    }

    static std::array<float, channels> mixed(const std::vector<float>& row, const Mix& mix) {
        std::array<float, channels> sums{};
        const float* value = row.data() + mix.first * channels;
        for (const float share : mix.shares) {
            for (float& sum : sums) {
                sum += share * *value++;
            }
        }
        return sums;
    }

    void putPixel(const Mix& mix, std::uint8_t* out) const {
        const std::array<float, channels> pixel = mixed(row_, mix);
        std::transform(pixel.begin(), pixel.end(), out, toByte);
        if (seen_.empty() || out[alphaAt] == 0) return;
        const std::array<float, channels> seen = mixed(seen_, mix);
        std::transform(seen.begin(), seen.end() - 1, out,
                       [&](float colour) { return toByte(colour / pixel[alphaAt]); });
    }

    const Pixels& from_;
    const Pixels& to_;
    std::size_t rowLength_;
    std::vector<float> row_;
    std::vector<float> seen_; ///< the same with colours times alpha; empty where all is opaque
};

bool isWhole(const Pixels& pixels) {
    return !pixels.values.empty() && pixels.values.size() == pixels.sides.pixels() * pixels.channels;
}

} // namespace

void resample(const Pixels& from, ScaleFilter filter, const Pixels& to) {
    if (!isWhole(from) || !isWhole(to) || from.channels != to.channels || from.channels > 4) {
        throw makeError(ErrorNumber::InvalidCall, "resample");
    }
    switch (from.channels) {
    case 1:
        return Resampler<1>{from, to}.run(filter);
    case 2:
        return Resampler<2>{from, to}.run(filter);
    case 3:
        return Resampler<3>{from, to}.run(filter);
    default:
        return Resampler<4>{from, to}.run(filter);
    }
}

} // namespace pelrath
