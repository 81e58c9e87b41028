#include "effects.hpp"

#include <array>

#include "noise.hpp"
#include "pen.hpp"

namespace demo {

void drawCanopyGlass(Canvas& canvas) {
    canvas.paint([&](Vec2 pixel) {
        const Vec2 p{pixel.x / real(canvas.width()), pixel.y / real(canvas.height())};
        const float sheen = 0.05F + 0.08F * (1.0F - p.y);
        const float slant = p.x * 1.3F + p.y * 0.55F;
        const float band = smoothStep(0.42F, 0.47F, slant) * smoothStep(0.68F, 0.6F, slant);
        const float thin = smoothStep(0.74F, 0.755F, slant) * smoothStep(0.80F, 0.785F, slant);
        const float horizon = smoothStep(0.62F, 0.6F, p.y + 0.02F * std::sin(p.x * 14.0F));
        const float fine = fractalNoise({slant * 300.0F, (p.x - p.y) * 5.0F}, 2, 13);
        const float scratches = 0.25F * smoothStep(0.72F, 0.8F, fine);
        const Color tint = mix(rgb(0x5A6A58), rgb(0xCFE2EE), horizon);
        return withAlpha(mix(tint, grey(1.0F), 0.5F * band),
                         clamp01(sheen + 0.26F * band + 0.2F * thin + scratches));
    });
    const Pen pen(canvas);
    pen.frame({0.0F, 0.0F}, {pen.right(), pen.bottom()}, 0.06F, rgb(0x4B5046));
    for (int i = 0; i < 40; ++i) {
        const float t = (real(i) + 0.5F) / 40.0F;
        for (const float y : {0.014F, pen.bottom() - 0.014F}) {
            pen.disc({t * pen.right(), y}, 0.0055F, rgb(0x23261F));
            pen.disc({t * pen.right() - 0.001F, y - 0.001F}, 0.003F, rgb(0x7C8274));
        }
    }
}

void drawTracer(Canvas& canvas) {
    canvas.paint([&](Vec2 pixel) {
        const float x = pixel.x / real(canvas.width());
        const float y = 2.0F * pixel.y / real(canvas.height()) - 1.0F;
        const float head = smoothStep(1.0F, 0.95F, x);
        const float along = head * std::pow(x, 1.6F);
        const float half = 0.12F + 0.55F * x;
        const float glow = fade(clamp01(1.0F - std::abs(y) / half));
        const float core = fade(clamp01(1.0F - std::abs(y) / (half * 0.4F)));
        return withAlpha(mix(rgb(0xF2641C), rgb(0xFFF7C4), core), clamp01(along * (0.7F * glow + core)));
    });
}

void drawSearchlight(Canvas& canvas) {
    canvas.paint([&](Vec2 pixel) {
        const float x = 2.0F * pixel.x / real(canvas.width()) - 1.0F;
        const float t = 1.0F - pixel.y / real(canvas.height());
        const float half = 0.05F + 0.9F * t;
        const float across = clamp01(1.0F - std::abs(x) / half);
        const float haze = 0.75F + 0.5F * fractalNoise({x * 3.0F / half, t * 9.0F}, 3, 17);
        const float fall = (1.0F - 0.85F * t) * smoothStep(1.0F, 0.8F, t) * smoothStep(0.0F, 0.02F, t);
        const float core = std::pow(across, 3.0F);
        return withAlpha(mix(rgb(0xA9C4E8), rgb(0xFFFFF4), core),
                         clamp01(haze * fall * (0.5F * fade(across) + 0.4F * core)));
    });
}

void drawMuzzleFlash(Canvas& canvas) {
    const Vec2 middle{real(canvas.width()) / 2.0F, real(canvas.height()) / 2.0F};
    canvas.paint([&](Vec2 pixel) {
        const Vec2 p = (pixel - middle) * (1.0F / std::min(middle.x, middle.y));
        const float r = length(p);
        const float turn = std::atan2(p.y, p.x);
        const float spikes = 0.36F + 0.4F * std::pow(std::abs(std::cos(turn * 2.5F + 0.4F)), 6.0F) +
                             0.14F * std::pow(std::abs(std::cos(turn * 4.0F + 1.1F)), 4.0F);
        const float ragged = 0.16F * (fractalNoise(p * 6.0F, 3, 18) - 0.5F);
        const float body = clamp01(1.0F - r / (spikes + ragged));
        const Color color = mix(rgb(0xF0701E), rgb(0xFFFCE0), smoothStep(0.1F, 0.65F, body));
        return withAlpha(color, smoothStep(0.0F, 0.3F, body));
    });
}

void drawSunGlow(Canvas& canvas) {
    const Pen pen = Pen(canvas).at({0.5F, 0.5F}, 0.5F);
    pen.glow({}, 1.0F, rgb(0xFFD98A, 0.4F));
    pen.glow({}, 0.6F, rgb(0xFFEDC0, 0.6F));
    for (int i = 0; i < 12; ++i) {
        const float reach = i % 2 == 0 ? 0.95F : 0.6F;
        pen.streak({}, polar(15.0F + 30.0F * real(i), reach), 0.05F, rgb(0xFFF3D2, 0.5F));
    }
    pen.glow({}, 0.24F, rgb(0xFFFFFF));
    pen.ring({}, 0.7F, 0.025F, rgb(0xE8B0A0, 0.18F));
    pen.ring({}, 0.72F, 0.015F, rgb(0xA0C8E8, 0.16F));
}

void drawShadowBlob(Canvas& canvas) {
    canvas.paint([&](Vec2 pixel) {
        const Vec2 p{2.0F * pixel.x / real(canvas.width()) - 1.0F,
                     2.0F * pixel.y / real(canvas.height()) - 1.0F};
        return grey(0.02F, 0.62F * fade(clamp01(1.05F - length(p))));
    });
}

void drawAircraftShadow(Canvas& canvas) {
    const Pen pen = Pen(canvas).at({0.5F, 0.5F}, 0.5F);
    const std::array<Vec2, 22> knots{
        {{0.0F, -0.8F},   {0.06F, -0.72F}, {0.085F, -0.4F}, {0.3F, -0.36F},  {0.7F, -0.28F}, {0.9F, -0.18F},
         {0.86F, -0.1F},  {0.5F, -0.03F},  {0.1F, 0.02F},   {0.07F, 0.4F},   {0.34F, 0.52F}, {0.34F, 0.62F},
         {0.0F, 0.68F},   {-0.34F, 0.62F}, {-0.34F, 0.52F}, {-0.07F, 0.4F},  {-0.1F, 0.02F}, {-0.5F, -0.03F},
         {-0.86F, -0.1F}, {-0.9F, -0.18F}, {-0.7F, -0.28F}, {-0.085F, -0.4F}}};
    const std::vector<Vec2> outline = closedCurve(knots);
    // A stack of faint, growing copies makes the edge soft.
    for (int i = 0; i < 6; ++i) {
        const Pen copy = pen.at({}, 1.05F - 0.025F * real(i));
        copy.polygon(outline, grey(0.02F, 0.16F));
    }
}

void drawBulletHoles(Canvas& canvas) {
    const Pen pen(canvas);
    Random random(44);
    for (int i = 0; i < 14; ++i) {
        const Vec2 at = random.inside({0.1F, 0.1F}, {pen.right() - 0.1F, pen.bottom() - 0.1F});
        const float r = random.range(0.02F, 0.042F);
        pen.glow(at, r * 2.6F, rgb(0x1E1A16, 0.5F));
        for (int petal = 0; petal < 9; ++petal) {
            const float degrees = 40.0F * real(petal) + random.range(-14.0F, 14.0F);
            const Color metal = shaded(rgb(0xB9BDBC), random.range(0.55F, 1.1F));
            pen.taper(at + polar(degrees, r * 0.6F), at + polar(degrees, r * random.range(1.2F, 1.75F)),
                      r * 0.6F, 0.003F, metal);
        }
        pen.disc(at, r * 0.85F, rgb(0x080707));
        pen.arc(at, r * 0.82F, r * 0.16F, 100.0F, 220.0F, rgb(0xC9CCCA, 0.8F));
    }
    for (int i = 0; i < 30; ++i) {
        const Vec2 at = random.inside({0.06F, 0.06F}, {pen.right() - 0.06F, pen.bottom() - 0.06F});
        pen.line(at, at + polar(random.range(0.0F, 360.0F), 0.02F), 0.004F, rgb(0xB0B4B3, 0.7F));
    }
}

void drawOilStain(Canvas& canvas) {
    canvas.paint([&](Vec2 pixel) {
        const Vec2 p{2.0F * pixel.x / real(canvas.width()) - 1.0F,
                     2.0F * pixel.y / real(canvas.height()) - 1.0F};
        const float ragged = 0.55F * (fractalNoise(p * 2.4F, 4, 23) - 0.5F);
        const float body = 0.62F + ragged - length(p);
        const float film = smoothStep(0.0F, 0.25F, body);
        const float hue = fraction(body * 2.5F);
        const Color sheen =
            mix(mix(rgb(0x3B2E50), rgb(0x2E4A44), fade(hue)), rgb(0x4A3A26), fade(1.0F - hue) * 0.4F);
        return withAlpha(mix(sheen, rgb(0x0E0C0B), smoothStep(0.1F, 0.32F, body)), 0.9F * film);
    });
    const Pen pen(canvas);
    Random random(24);
    for (int i = 0; i < 26; ++i) {
        const Vec2 at =
            Vec2{0.5F * pen.right(), 0.5F} + polar(random.range(0.0F, 360.0F), random.range(0.3F, 0.46F));
        pen.disc(at, random.range(0.004F, 0.018F), rgb(0x12100E, 0.8F));
    }
}

void drawBombCrater(Canvas& canvas) {
    canvas.paint([&](Vec2 pixel) {
        const Vec2 p{2.0F * pixel.x / real(canvas.width()) - 1.0F,
                     2.0F * pixel.y / real(canvas.height()) - 1.0F};
        const float turn = std::atan2(p.y, p.x);
        const float rough = fractalNoise(p * 5.0F, 5, 31);
        const float r = length(p) + 0.16F * (rough - 0.5F);
        const float rays = fractalNoise({std::cos(turn) * 5.0F, std::sin(turn) * 5.0F}, 3, 32);
        const float lit = clamp01(0.5F - (p.x + p.y) * (r < 0.42F ? -0.9F : 0.9F) / (0.3F + r));
        const Color soil = shaded(mix(rgb(0x2C2219), rgb(0x8A7252), lit), 0.7F + 0.6F * rough);
        const Color burnt = mix(soil, rgb(0x15110D), smoothStep(0.42F, 0.05F, r) * 0.8F);
        const float rim = smoothStep(0.62F, 0.5F, r);
        const float thrown =
            smoothStep(1.0F, 0.5F, r) * smoothStep(0.42F, 0.62F, rays + 0.2F * (rough - 0.5F));
        return withAlpha(burnt, clamp01(rim + 0.75F * thrown) * smoothStep(1.0F, 0.88F, length(p)));
    });
}

void drawReticle(Canvas& canvas) {
    const Pen pen = Pen(canvas).at({0.5F, 0.5F}, 0.5F);
    const Color amber = rgb(0xFFB347);
    const auto glowing = [&](Vec2 a, Vec2 b) {
        pen.line(a, b, 0.035F, withAlpha(amber, 0.18F));
        pen.line(a, b, 0.01F, amber);
    };
    for (const float radius : {0.34F, 0.68F}) {
        pen.ring({}, radius, 0.035F, withAlpha(amber, 0.2F));
        pen.ring({}, radius, 0.01F, amber);
    }
    pen.glow({}, 0.06F, withAlpha(amber, 0.5F));
    pen.disc({}, 0.016F, rgb(0xFFE2B0));
    glowing({-0.9F, 0.0F}, {-0.14F, 0.0F});
    glowing({0.14F, 0.0F}, {0.9F, 0.0F});
    glowing({0.0F, 0.14F}, {0.0F, 0.9F});
    for (int i = 1; i < 8; ++i) {
        const float at = 0.14F + 0.09F * real(i);
        const float half = i % 2 == 0 ? 0.035F : 0.02F;
        glowing({at, -half}, {at, half});
        glowing({-at, -half}, {-at, half});
        glowing({-half, at}, {half, at});
    }
    for (int i = 0; i < 36; ++i) {
        const float degrees = 10.0F * real(i);
        pen.line(polar(degrees, 0.68F), polar(degrees, i % 3 == 0 ? 0.74F : 0.71F), 0.009F, amber);
    }
}

void drawParachute(Canvas& canvas) {
    const Pen pen(canvas);
    const float x = pen.right() / 2.0F;
    const float rim = 0.42F * pen.bottom();
    const float foot = 0.84F * pen.bottom();
    for (int i = 0; i <= 8; ++i) {
        const float t = real(i) / 4.0F - 1.0F;
        pen.line({x + 0.45F * t, rim}, {x, foot}, 0.012F, rgb(0xB0A990));
    }
    for (int i = 0; i < 8; ++i) {
        const float a = real(i) / 4.0F - 1.0F;
        const float b = real(i + 1) / 4.0F - 1.0F;
        std::vector<Vec2> gore;
        for (int k = 0; k <= 12; ++k) {
            const float lift = radians(7.5F * real(k));
            gore.push_back({x + 0.46F * a * std::cos(lift), rim - 0.38F * pen.bottom() * std::sin(lift)});
        }
        for (int k = 12; k >= 0; --k) {
            const float lift = radians(7.5F * real(k));
            gore.push_back({x + 0.46F * b * std::cos(lift), rim - 0.38F * pen.bottom() * std::sin(lift)});
        }
        gore.push_back({x + 0.46F * (a + b) / 2.0F, rim - 0.03F});
        pen.polygon(gore, mix(rgb(0xF1EDDF), rgb(0xA9A391),
                              clamp01(0.15F + 0.5F * (b + 1.0F) / 2.0F + (i % 2 == 0 ? 0.1F : 0.0F))));
    }
    pen.disc({x, foot + 0.02F}, 0.026F, rgb(0x4A3222));
    pen.line({x, foot + 0.05F}, {x, foot + 0.1F}, 0.055F, rgb(0x5A5A48));
    pen.line({x - 0.012F, foot + 0.11F}, {x - 0.02F, foot + 0.17F}, 0.022F, rgb(0x3D4048));
    pen.line({x + 0.012F, foot + 0.11F}, {x + 0.02F, foot + 0.17F}, 0.022F, rgb(0x3D4048));
}

void drawRain(Canvas& canvas) {
    const Pen pen(canvas);
    Random random(52);
    for (int i = 0; i < 150; ++i) {
        const Vec2 at = random.inside({0.0F, -0.1F}, {pen.right(), pen.bottom()});
        const float reach = random.range(0.06F, 0.16F);
        pen.taper(at, at + Vec2{-0.12F * reach, reach}, 0.001F, 0.007F,
                  rgb(0xC4D2DC, random.range(0.35F, 0.9F)));
    }
}

} // namespace demo
