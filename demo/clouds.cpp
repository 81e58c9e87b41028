#include <vector>

#include "effects.hpp"
#include "noise.hpp"
#include "pen.hpp"

namespace demo {

namespace {

// From -1 to 1 over the canvas.
Vec2 centred(const Canvas& canvas, Vec2 p) {
    return {2.0F * p.x / real(canvas.width()) - 1.0F, 2.0F * p.y / real(canvas.height()) - 1.0F};
}

// Rounded billows: high in the middle of each, with creases between them.
float billow(Vec2 p, std::uint32_t seed) {
    float sum = 0.0F;
    float weight = 0.62F;
    for (std::uint32_t i = 0; i < 5; ++i) {
        sum += weight * std::sqrt(std::abs(2.0F * gradientNoise(p, seed + i) - 1.0F));
        // Turned between the octaves, or the creases would follow the lattice.
        p = Vec2{p.x * 0.8F - p.y * 0.6F, p.x * 0.6F + p.y * 0.8F} * 2.07F;
        weight *= 0.5F;
    }
    return clamp01(sum);
}

struct Puff {
    Color shade;
    Color light;
    float scale;    // billows over half the canvas
    float softness; // width of the edge
    float opacity;
    std::uint32_t seed;
};

// A ball of vapour, lit from the upper left by the slope of its billows.
void drawPuff(Canvas& canvas, const Puff& puff, Vec2 radii = {0.86F, 0.86F}) {
    canvas.paint([&](Vec2 pixel) {
        const Vec2 p = centred(canvas, pixel);
        const float r = length({p.x / radii.x, p.y / radii.y});
        if (r > 1.2F) return withAlpha(puff.shade, 0.0F);
        const float here = billow(p * puff.scale, puff.seed);
        const float towardsLight = billow((p + Vec2{-0.05F, -0.06F}) * puff.scale, puff.seed);
        const float density = here * 0.55F + 0.62F - r;
        const float alpha =
            puff.opacity * smoothStep(0.0F, puff.softness, density) * smoothStep(1.12F, 0.9F, r);
        const float lit =
            clamp01(0.45F + 1.5F * (here - towardsLight) - 0.4F * (p.x * 0.5F + p.y) + 0.25F * (here - 0.5F));
        return withAlpha(mix(puff.shade, puff.light, lit), alpha);
    });
}

Color flameColor(float heat) {
    if (heat > 0.66F) return mix(rgb(0xFFC23C), rgb(0xFFF6CF), (heat - 0.66F) * 3.0F);
    if (heat > 0.33F) return mix(rgb(0xE8571A), rgb(0xFFC23C), (heat - 0.33F) * 3.0F);
    return mix(rgb(0x3A120A), rgb(0xE8571A), heat * 3.0F);
}

} // namespace

void drawWhiteSmoke(Canvas& canvas) {
    drawPuff(canvas, {rgb(0x8E9296), rgb(0xF4F4F1), 2.6F, 0.42F, 0.92F, 101});
}

void drawBlackSmoke(Canvas& canvas) {
    drawPuff(canvas, {rgb(0x0D0C0C), rgb(0x5A544E), 2.9F, 0.36F, 0.97F, 202});
}

void drawDust(Canvas& canvas) {
    drawPuff(canvas, {rgb(0x7C6848), rgb(0xCDB98E), 2.2F, 0.6F, 0.75F, 303}, {0.92F, 0.75F});
}

void drawFlakBurst(Canvas& canvas) {
    drawPuff(canvas, {rgb(0x161514), rgb(0x7A756E), 3.4F, 0.3F, 0.96F, 404}, {0.74F, 0.74F});
    const Pen pen(canvas);
    pen.glow({pen.right() * 0.48F, 0.5F}, 0.16F, rgb(0xFF9A3C, 0.8F));
    pen.glow({pen.right() * 0.48F, 0.5F}, 0.07F, rgb(0xFFF1C0));
}

void drawCumulus(Canvas& canvas) {
    canvas.paint([&](Vec2 pixel) {
        const Vec2 p = centred(canvas, pixel);
        const float here = billow({p.x * 3.2F, p.y * 2.2F}, 55);
        const float towardsLight = billow({(p.x - 0.04F) * 3.2F, (p.y - 0.07F) * 2.2F}, 55);
        const float dome =
            0.92F - p.x * p.x * 1.05F -
            (p.y < 0.3F ? std::pow((0.3F - p.y) / 1.2F, 2.0F) * 0.9F : std::pow((p.y - 0.3F) / 0.45F, 2.0F));
        const float alpha = smoothStep(0.0F, 0.22F, dome * 0.75F + here * 0.5F - 0.45F) *
                            smoothStep(1.0F, 0.88F, std::abs(p.x)) * smoothStep(1.0F, 0.85F, std::abs(p.y));
        const float lit = clamp01(0.62F - 0.55F * p.y + 1.2F * (here - towardsLight));
        return withAlpha(mix(rgb(0x8C98A8), rgb(0xFFFEFA), lit), alpha);
    });
}

void drawCirrus(Canvas& canvas) {
    canvas.paint([&](Vec2 pixel) {
        const Vec2 p = centred(canvas, pixel);
        const Vec2 bent{p.x * 1.4F + 0.3F * p.y, p.y * 6.0F + 1.6F * std::sin(p.x * 1.7F)};
        const float strands = fractalNoise({bent.x * 1.3F, bent.y * 2.4F}, 5, 66);
        const float patches = fractalNoise(p * 1.6F, 3, 67);
        const float edge = smoothStep(1.0F, 0.6F, std::abs(p.x)) * smoothStep(1.0F, 0.6F, std::abs(p.y));
        const float alpha = edge * smoothStep(0.45F, 0.72F, strands) * smoothStep(0.36F, 0.62F, patches);
        return withAlpha(rgb(0xF3F6FA), 0.85F * alpha);
    });
}

void drawFire(Canvas& canvas) {
    canvas.paint([&](Vec2 pixel) {
        const Vec2 p = centred(canvas, pixel);
        const float height = (1.0F - p.y) / 2.0F; // 0 at the foot
        const float sway = (fractalNoise({p.x * 1.5F, height * 2.4F + 4.0F}, 3, 71) - 0.5F) * 1.1F * height;
        const float tongues = billow({(p.x + sway) * 2.2F, p.y * 1.5F + std::abs(p.x) * 1.2F}, 72);
        const float half =
            0.66F * std::pow(clamp01(1.02F - height), 0.7F) * (0.7F + 0.3F * smoothStep(0.0F, 0.2F, height));
        const float body = 1.0F - std::abs(p.x + sway) / std::max(0.02F, half);
        const float heat = clamp01(body * 0.95F + (tongues - 0.55F) * 0.9F - 0.35F * height + 0.08F);
        const float alpha = smoothStep(0.05F, 0.35F, heat) * smoothStep(0.0F, 0.06F, height);
        return withAlpha(flameColor(clamp01(heat * 1.15F)), alpha);
    });
}

void drawExplosion(Canvas& canvas) {
    canvas.paint([&](Vec2 pixel) {
        const Vec2 p = centred(canvas, pixel);
        const float r = length(p);
        const Vec2 outward = p * (1.0F / std::max(0.05F, r));
        const float rays = fractalNoise({outward.x * 3.0F + 9.0F, outward.y * 3.0F + r * 0.7F}, 3, 81);
        const float lumps = billow(p * 2.6F, 82);
        const float body = 0.78F + 0.55F * (rays - 0.5F) - r + 0.3F * (lumps - 0.5F);
        const float heat = clamp01(body * 1.15F + 0.45F * (lumps - 0.5F) + 0.12F);
        const float alpha = smoothStep(0.0F, 0.2F, body) * smoothStep(1.0F, 0.9F, r);
        const Color smoke = mix(rgb(0x1A1614), rgb(0x4A4038), lumps);
        return withAlpha(mix(smoke, flameColor(clamp01(heat * 1.2F)), smoothStep(0.12F, 0.38F, heat)), alpha);
    });
    const Pen pen(canvas);
    Random random(83);
    for (int i = 0; i < 70; ++i) {
        const float degrees = random.range(0.0F, 360.0F);
        const float from = random.range(0.28F, 0.4F);
        const Vec2 middle{0.5F, 0.5F};
        pen.taper(middle + polar(degrees, from), middle + polar(degrees, from + random.range(0.02F, 0.09F)),
                  0.006F, 0.002F, rgb(0xFFDD80, random.range(0.4F, 1.0F)));
    }
}

void drawSplash(Canvas& canvas) {
    canvas.paint([](Vec2) { return rgb(0xDCE8EC, 0.0F); });
    const Pen pen(canvas);
    Random random(91);
    for (int i = 0; i < 260; ++i) {
        const float lean = random.range(-1.0F, 1.0F);
        const float height = pen.bottom() * random.range(0.2F, 0.96F) * (1.0F - 0.55F * lean * lean);
        const Vec2 foot{pen.right() * 0.5F + lean * 0.13F, pen.bottom() * 0.97F};
        const Vec2 top{foot.x + lean * 0.3F * height, foot.y - height};
        const Color water = mix(rgb(0x9DB4BE), rgb(0xFBFEFF), random.uniform());
        pen.taper(foot, top, 0.035F, 0.008F, withAlpha(water, 0.1F));
        pen.disc(top + random.inside({-0.06F, -0.02F}, {0.06F, 0.08F}), random.range(0.003F, 0.012F),
                 withAlpha(water, 0.8F));
    }
    for (int i = 0; i < 40; ++i) {
        const float x = pen.right() * random.range(0.12F, 0.88F);
        pen.glow({x, pen.bottom() * random.range(0.91F, 0.98F)}, random.range(0.04F, 0.1F),
                 rgb(0xF4FAFC, 0.5F));
    }
}

void drawContrail(Canvas& canvas) {
    canvas.paint([&](Vec2 pixel) {
        const Vec2 p = centred(canvas, pixel);
        const float along = pixel.x / real(canvas.height());
        const float lumps = fractalNoise({along * 3.0F, p.y * 2.0F}, 4, 95);
        const float alpha = smoothStep(0.0F, 0.5F, 0.72F + 0.7F * (lumps - 0.5F) - std::abs(p.y));
        return withAlpha(mix(rgb(0xB9C4D0), rgb(0xFFFFFF), clamp01(0.6F - 0.5F * p.y + lumps - 0.5F)),
                         0.9F * alpha);
    });
}

} // namespace demo
