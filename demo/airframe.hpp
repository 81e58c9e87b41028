#pragma once

#include <string_view>

#include "camouflage.hpp"
#include "marks.hpp"

namespace demo {

struct SkinStyle {
    PaintScheme scheme{};
    Insignia insignia = Insignia::Rings;
    std::string_view code{};   // letters in front of the insignia
    std::string_view letter{}; // the aircraft's own letter behind it
    std::string_view serial{};
    Color codeColor{};
    Color spinner{};
    Color band{0.0F, 0.0F, 0.0F, 0.0F}; // round the rear fuselage; none with alpha 0
    bool radial = false;                // blunt cowling instead of a pointed one
    bool sharkMouth = false;
    float wear = 0.5F; // 0 fresh from the works .. 1 worn out
};

// One piece of an airframe on a sheet: while it lives, drawing is limited to its outline.
class Part {
public:
    Part(const Pen& pen, std::span<const Vec2> outline);
    ~Part() { pen_.canvas().setClip(nullptr); }
    Part(const Part&) = delete;
    Part& operator=(const Part&) = delete;

    // Blends shader(point in the coordinates of the pen) over the piece.
    template <class Shader>
    void coat(Shader shader) const {
        pen_.canvas().overlay(low_, high_, [&](Vec2 p) { return shader(pen_.fromPixels(p)); });
    }
    // A dark seam along the outline.
    void edge(std::span<const Vec2> outline) const;
    // Fading, dirt drawn out along `flow`, and chipped paint where chips(p) is above 0.
    template <class Chips>
    void weather(Vec2 flow, float wear, std::uint32_t seed, Chips chips) const {
        coat([&](Vec2 p) { return dirtAt(p, flow, wear, seed); });
        coat([&](Vec2 p) {
            const float amount = chips(p);
            return amount > 0.0F ? chipAt(p, amount * wear, seed) : Color{0.0F, 0.0F, 0.0F, 0.0F};
        });
    }

private:
    static Color dirtAt(Vec2 p, Vec2 flow, float wear, std::uint32_t seed);
    static Color chipAt(Vec2 p, float amount, std::uint32_t seed);

    Pen pen_;
    Mask mask_;
    Vec2 low_;
    Vec2 high_;
};

// Nose at x = 0, tail at x = 1, the fuselage's middle at y = 0, its top at negative y.
// With `mirroredView` the pen is a mirrored one; letters are kept readable.
void drawFuselageSide(const Pen& pen, const SkinStyle& style, bool mirroredView);

// Half a wing: root at x = 0, tip at x = 1, leading edge at y = 0, trailing edge at about y = 0.42.
void drawWing(const Pen& pen, const SkinStyle& style, bool upper, bool mirroredView);

// Half a tailplane, of span 1 and chord 0.5, laid out like the wing.
void drawTailplane(const Pen& pen, const SkinStyle& style, bool upper);

} // namespace demo
