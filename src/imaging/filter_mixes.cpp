#include "imaging/filter_mixes.hpp"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

namespace pelrath {

namespace {

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

/// Rounds the shares' running sum: no error adds up, however many there are.
Mix rounded(std::size_t first, const std::vector<double>& weights, double sum) {
    Mix mix{first, {}};
    double running = 0;
    std::int64_t before = 0;
    for (const double weight : weights) {
        running += weight / sum * (1 << shareBits);
        const std::int64_t now = std::llround(running);
        mix.shares.push_back(static_cast<std::int16_t>(now - before));
        before = now;
    }
    if (mix.shares.size() % 2 != 0) mix.shares.push_back(0);
    return mix;
}

/// The part of a side that one output pixel is mixed from.
class Window {
public:
    Window(double middle, double ratio, double side, ScaleFilter filter)
        : box_(filter == ScaleFilter::Box || ratio == 1), kernel_(kernelOf(box_ ? ScaleFilter::Box : filter)),
          stretch_(box_ ? ratio : std::max(ratio, 1.0)), low_(middle - stretch_ * kernel_.radius),
          high_(middle + stretch_ * kernel_.radius),
          first_(static_cast<std::size_t>(std::max(low_, 0.0)) / 2 * 2),
          end_(static_cast<std::size_t>(std::min(std::ceil(high_), side))),
          whole_(low_ >= 0 && high_ <= side) {}

    [[nodiscard]] Mix mix() const {
        std::vector<double> weights;
        double sum = 0;
        for (std::size_t i = first_; i < end_; ++i) {
            weights.push_back(weightOf(static_cast<double>(i)));
            sum += weights.back();
        }
        return rounded(first_, weights, sum);
    }

    /// The same shares as in another one, from other pixels on.
    [[nodiscard]] bool isLike(const Window& other) const {
        return whole_ && other.whole_ &&
               low_ - static_cast<double>(first_) == other.low_ - static_cast<double>(other.first_);
    }
    [[nodiscard]] std::size_t first() const { return first_; }

private:
    /// Of a box, a pixel has the part that lies inside; enlarged, it is the output pixel's own box.
    [[nodiscard]] double weightOf(double pixel) const {
        const double distance = std::abs(pixel + 0.5 - (low_ + high_) / 2);
        if (box_) return std::max(std::min(pixel + 1, high_) - std::max(pixel, low_), 0.0);
        return distance < high_ - (low_ + high_) / 2 ? kernel_.weightAt(distance / stretch_) : 0;
    }

    bool box_;
    Kernel kernel_;
    double stretch_;
    double low_;
    double high_;
    std::size_t first_; ///< an even one
    std::size_t end_;
    bool whole_; ///< nothing of it lies beyond the side's ends
};

} // namespace

std::vector<Mix> mixesOf(std::uint32_t from, std::uint32_t to, ScaleFilter filter) {
    const double ratio = 1.0 * from / to;
    std::vector<Mix> mixes;
    std::optional<Window> before;
    for (std::uint32_t i = 0; i < to; ++i) {
        const Window window{(i + 0.5) * ratio, ratio, 1.0 * from, filter};
        const bool same = before && window.isLike(*before);
        mixes.push_back(same ? Mix{window.first(), mixes.back().shares} : window.mix());
        before = window;
    }
    return mixes;
}

} // namespace pelrath
