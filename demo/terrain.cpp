#include "terrain.hpp"

#include "noise.hpp"
#include "pen.hpp"

namespace demo {

namespace {

// Noise that repeats at the edges of the canvas, with `cells` units over each side.
float tiled(const Canvas& canvas, Vec2 pixel, int cells, int octaves, std::uint32_t seed) {
    const Vec2 p{pixel.x / real(canvas.width()) * real(cells), pixel.y / real(canvas.height()) * real(cells)};
    return fractalNoise(p, octaves, seed, cells);
}

// Contrast around the middle; the sum of several noises stays near it.
float spread(float value, float gain) { return clamp01(0.5F + (value - 0.5F) * gain); }

Color three(Color low, Color middle, Color high, float t) {
    return t < 0.5F ? mix(low, middle, t * 2.0F) : mix(middle, high, t * 2.0F - 1.0F);
}

// Draws at `at` and once more on the other side of each edge that the radius reaches over.
template <class Draw>
void wrapped(const Pen& pen, Vec2 at, float radius, Draw draw) {
    for (const float dx : {-pen.right(), 0.0F, pen.right()}) {
        for (const float dy : {-pen.bottom(), 0.0F, pen.bottom()}) {
            const Vec2 p{at.x + dx, at.y + dy};
            if (p.x > -radius && p.x < pen.right() + radius && p.y > -radius && p.y < pen.bottom() + radius)
                draw(p);
        }
    }
}

void scatterGrass(const Pen& pen, Random& random, int count, Color dark, Color light) {
    for (int i = 0; i < count; ++i) {
        const Vec2 at = random.inside({0.0F, 0.0F}, {pen.right(), pen.bottom()});
        const Vec2 blade = polar(random.range(-50.0F, 50.0F), random.range(0.008F, 0.02F));
        const Color color = withAlpha(mix(dark, light, random.uniform()), 0.55F);
        wrapped(pen, at, 0.03F, [&](Vec2 p) { pen.taper(p, p + blade, 0.0035F, 0.001F, color); });
    }
}

} // namespace

void drawGrass(Canvas& canvas) {
    canvas.paint([&](Vec2 p) {
        const float patches = spread(tiled(canvas, p, 5, 4, 1), 1.8F);
        const float fine = tiled(canvas, p, 64, 3, 2);
        return shaded(three(rgb(0x3A4A22), rgb(0x566832), rgb(0x7F8044), patches), 0.6F + 0.8F * fine);
    });
    Random random(3);
    const Pen pen(canvas);
    scatterGrass(pen, random, 7000, rgb(0x2C3A1A), rgb(0x93A052));
}

void drawMeadow(Canvas& canvas) {
    drawGrass(canvas);
    Random random(4);
    const Pen pen(canvas);
    for (int i = 0; i < 520; ++i) {
        const Vec2 at = random.inside({0.0F, 0.0F}, {pen.right(), pen.bottom()});
        if (tiled(canvas, pen.toPixels(at), 4, 2, 6) < 0.5F) continue;
        const Color bloom =
            random.below(3) == 0 ? rgb(0xE6D25A) : (random.below(2) == 0 ? rgb(0xE8E6DE) : rgb(0xB0527A));
        wrapped(pen, at, 0.01F, [&](Vec2 p) { pen.disc(p, 0.0042F, bloom); });
    }
}

void drawPloughedField(Canvas& canvas) {
    canvas.paint([&](Vec2 p) {
        const float sway = 0.35F * (tiled(canvas, p, 4, 3, 11) - 0.5F);
        const float furrow = 0.5F + 0.5F * std::sin((p.x / real(canvas.width()) * 32.0F + sway) * 2.0F * pi);
        const float clods = tiled(canvas, p, 48, 4, 12);
        const float damp = spread(tiled(canvas, p, 3, 3, 13), 2.0F);
        const Color soil = mix(rgb(0x4C3826), rgb(0x7D6244), damp);
        return shaded(soil, 0.5F + 0.55F * furrow * (0.6F + 0.8F * clods) + 0.3F * clods);
    });
}

void drawWheatField(Canvas& canvas) {
    canvas.paint([&](Vec2 p) {
        const float wind = spread(tiled(canvas, p, 4, 3, 21), 2.2F);
        const float rows = 0.5F + 0.5F * std::sin(p.y / real(canvas.height()) * 80.0F * pi + 2.0F * wind);
        const float ears = tiled(canvas, p, 96, 2, 22);
        const float across = (p.x / real(canvas.width()) - 0.5F);
        const float ruts = std::min(std::abs(across - 0.05F), std::abs(across + 0.05F));
        const Color wheat = mix(rgb(0xA5853C), rgb(0xDABE72), wind);
        return shaded(mix(rgb(0x7A6232), wheat, smoothStep(0.006F, 0.014F, ruts)),
                      0.62F + 0.14F * rows + 0.5F * ears);
    });
}

void drawForest(Canvas& canvas) {
    const int cells = 18;
    canvas.paint([&](Vec2 pixel) {
        const Vec2 p{pixel.x / real(canvas.width()) * real(cells),
                     pixel.y / real(canvas.height()) * real(cells)};
        const float leafy = tiled(canvas, pixel, 72, 3, 32);
        const Vec2 bent = p + Vec2{leafy - 0.5F, tiled(canvas, pixel, 72, 2, 33) - 0.5F} * 0.5F;
        const Cell crown = cellNoise(bent, 31, cells);
        const Vec2 off = bent - crown.centre;
        const float height = smoothStep(0.72F, 0.1F, crown.nearest) * smoothStep(0.0F, 0.25F, crown.edge);
        const float lit = clamp01(0.42F - 0.75F * (off.x + off.y) + 0.9F * (leafy - 0.5F));
        const Color leaf = three(rgb(0x2A3E1E), rgb(0x44582A), rgb(0x66692F), crown.id);
        return shaded(mix(rgb(0x182212), leaf, height), 0.75F + 1.1F * lit);
    });
}

void drawWater(Canvas& canvas) {
    canvas.paint([&](Vec2 p) {
        const Vec2 right = p + Vec2{1.0F, 0.0F};
        const auto height = [&](Vec2 at) { return tiled(canvas, at, 7, 4, 41); };
        const float slope = (height(p) - height(right)) * real(canvas.width()) / 28.0F;
        const float sky = clamp01(0.45F + slope);
        const float swell = spread(tiled(canvas, p, 3, 2, 43), 1.6F);
        const Color water = mix(rgb(0x16303C), rgb(0x2C5460), swell);
        const Color reflected = mix(water, rgb(0x8FB0BC), 0.75F * smoothStep(0.4F, 1.0F, sky));
        return mix(reflected, rgb(0xE4EEF0), 0.8F * smoothStep(0.93F, 1.0F, sky));
    });
}

void drawShallows(Canvas& canvas) {
    const int cells = 9;
    canvas.paint([&](Vec2 pixel) {
        Vec2 p{pixel.x / real(canvas.width()) * real(cells), pixel.y / real(canvas.height()) * real(cells)};
        p = p + Vec2{tiled(canvas, pixel, 9, 2, 51), tiled(canvas, pixel, 9, 2, 52)} * 1.3F;
        const float caustic = std::pow(clamp01(1.0F - cellNoise(p, 53, cells).edge * 1.6F), 4.0F);
        const float depth = spread(tiled(canvas, pixel, 3, 3, 54), 2.2F);
        return mix(mix(rgb(0x2E8C92), rgb(0x8CC8B4), depth), rgb(0xF2FFF4), 0.5F * caustic);
    });
}

void drawSand(Canvas& canvas) {
    canvas.paint([&](Vec2 p) {
        const float sway = 3.2F * tiled(canvas, p, 4, 3, 61);
        const float ripple = std::sin((p.y / real(canvas.height()) * 22.0F + sway) * 2.0F * pi);
        const float dune = spread(tiled(canvas, p, 2, 2, 62), 1.6F);
        const float grain = tiled(canvas, p, 128, 2, 63);
        return shaded(mix(rgb(0xB3935E), rgb(0xDDC492), dune), 0.78F + 0.09F * ripple + 0.28F * grain);
    });
}

void drawRock(Canvas& canvas) {
    const int cells = 6;
    canvas.paint([&](Vec2 pixel) {
        const Vec2 p{pixel.x / real(canvas.width()) * real(cells),
                     pixel.y / real(canvas.height()) * real(cells)};
        const float rough = tiled(canvas, pixel, 12, 5, 72);
        const float rough2 = tiled(canvas, pixel, 12, 5, 73);
        const Cell slab = cellNoise(p + Vec2{rough, rough2} * 1.1F, 71, cells);
        const float crack = smoothStep(0.0F, 0.12F, slab.edge);
        const Vec2 off = p + Vec2{rough, rough2} * 1.1F - slab.centre;
        const float lit = clamp01(0.55F - 0.35F * (off.x + off.y) + 1.1F * (rough - 0.5F));
        const Color stone = mix(rgb(0x57534C), rgb(0x9C9384), clamp01(0.4F * slab.id + 0.7F * lit));
        const Color mossy =
            mix(stone, rgb(0x5C6238), 0.6F * smoothStep(0.55F, 0.7F, tiled(canvas, pixel, 5, 4, 74)));
        return shaded(mossy, 0.4F + 0.6F * crack);
    });
}

void drawSnow(Canvas& canvas) {
    canvas.paint([&](Vec2 p) {
        const float drift = spread(tiled(canvas, p, 3, 4, 81), 1.9F);
        const float next = spread(tiled(canvas, p + Vec2{3.0F, 3.0F}, 3, 4, 81), 1.9F);
        const float lit = clamp01(0.62F + (drift - next) * 5.0F);
        const float sparkle = smoothStep(0.74F, 0.8F, tiled(canvas, p, 180, 1, 82));
        return mix(mix(rgb(0xB4C2D6), rgb(0xF3F5F7), lit), grey(1.0F), 0.8F * sparkle);
    });
}

void drawMud(Canvas& canvas) {
    canvas.paint([&](Vec2 p) {
        const float lumps = tiled(canvas, p, 14, 5, 91);
        const float level = tiled(canvas, p, 4, 3, 92) + 0.35F * (lumps - 0.5F);
        const float x = p.x / real(canvas.width());
        const float rut = std::min(std::abs(x - 0.3F), std::abs(x - 0.7F)) + 0.02F * (lumps - 0.5F);
        const float tread = 0.5F + 0.5F * std::sin(p.y / real(canvas.height()) * 96.0F * pi);
        const float track = smoothStep(0.06F, 0.045F, rut);
        const Color soil = shaded(rgb(0x5A4631), 0.55F + 0.9F * lumps - 0.16F * track * tread - 0.1F * track);
        const float wet = smoothStep(0.455F, 0.4F, level);
        return mix(soil, mix(rgb(0x6D6F6A), rgb(0x9AA4A8), lumps), 0.8F * wet);
    });
}

} // namespace demo
