#include "mipmaps.hpp"

#include <utility>

namespace demo {

namespace {

// The source texels from which one texel of the smaller level is averaged.
struct Span {
    int first;
    int last;
};

Span sourceSpan(int target, int targetSide, int sourceSide) {
    const int first = target * sourceSide / targetSide;
    const int end = (target + 1) * sourceSide / targetSide;
    return {first, std::max(first, end - 1)};
}

// Colours count by their alpha, or the colour of invisible texels would bleed into the edges.
Color average(const Canvas& source, Span columns, Span rows) {
    Color seen{0.0F, 0.0F, 0.0F, 0.0F};
    Color hidden = seen;
    float count = 0.0F;
    for (int y = rows.first; y <= rows.last; ++y) {
        for (int x = columns.first; x <= columns.last; ++x) {
            const Color c = source.at(x, y);
            seen = {seen.r + c.r * c.a, seen.g + c.g * c.a, seen.b + c.b * c.a, seen.a + c.a};
            hidden = {hidden.r + c.r, hidden.g + c.g, hidden.b + c.b, 0.0F};
            count += 1.0F;
        }
    }
    if (seen.a <= 0.0F) return withAlpha(shaded(hidden, 1.0F / count), 0.0F);
    return withAlpha(shaded(seen, 1.0F / seen.a), seen.a / count);
}

Canvas halved(const Canvas& source) {
    Canvas target(std::max(1, source.width() / 2), std::max(1, source.height() / 2));
    for (int y = 0; y < target.height(); ++y) {
        const Span rows = sourceSpan(y, target.height(), source.height());
        for (int x = 0; x < target.width(); ++x) {
            target.at(x, y) = average(source, sourceSpan(x, target.width(), source.width()), rows);
        }
    }
    return target;
}

} // namespace

int fullChain(int width, int height) {
    int count = 1;
    for (int side = std::max(width, height); side > 1; side /= 2)
        ++count;
    return count;
}

std::vector<Canvas> mipmapChain(Canvas base, int count) {
    std::vector<Canvas> chain;
    chain.push_back(std::move(base));
    while (static_cast<int>(chain.size()) < count)
        chain.push_back(halved(chain.back()));
    return chain;
}

} // namespace demo
