#include "foliage.hpp"

#include <array>

#include "noise.hpp"
#include "pen.hpp"

namespace demo {

namespace {

struct Leafage {
    Color dark;
    Color light;
    float size;
    float spread;
    int leaves; // for each twig; none on a bare tree
};

void drawLeaf(const Pen& pen, Vec2 at, float degrees, float size, Color color) {
    const Pen turned = pen.at(at, size, degrees);
    const std::array<Vec2, 6> outline{
        {{0.0F, 0.5F}, {0.26F, 0.18F}, {0.24F, -0.15F}, {0.0F, -0.5F}, {-0.24F, -0.15F}, {-0.26F, 0.18F}}};
    turned.polygon(outline, color);
}

// Leaves nearer to the top left of the crown catch more light.
void drawCluster(const Pen& pen, Vec2 centre, const Leafage& kind, Random& random) {
    for (int i = 0; i < kind.leaves; ++i) {
        const Vec2 off = polar(random.range(0.0F, 360.0F), kind.spread * std::sqrt(random.uniform()));
        const float depth = real(i) / real(kind.leaves);
        const float light = clamp01(0.25F + 0.5F * depth - (off.x + 1.6F * off.y) / kind.spread * 0.25F +
                                    random.range(-0.2F, 0.2F));
        drawLeaf(pen, centre + off, random.range(0.0F, 360.0F), kind.size * random.range(0.7F, 1.25F),
                 mix(kind.dark, kind.light, light));
    }
}

struct Limb {
    Vec2 base;
    float degrees;
    float size;
    float width;
    int order;
};

class Tree {
public:
    Tree(const Pen& pen, Color bark, const Leafage& leafage, std::uint32_t seed)
        : pen_(pen), bark_(bark), leafage_(leafage), random_(seed) {}

    void grow(const Limb& limb) {
        const Vec2 tip = limb.base + polar(limb.degrees, limb.size);
        pen_.taper(limb.base, tip, limb.width, limb.width * 0.68F, bark_);
        const Vec2 lit{-limb.width * 0.22F, 0.0F};
        pen_.taper(limb.base + lit, tip + lit, limb.width * 0.25F, limb.width * 0.15F, shaded(bark_, 1.5F));
        if (limb.order <= 1) twigs_.push_back(tip);
        if (limb.order == 0) return;
        const int branches = limb.order > 3 ? 4 : 3;
        for (int i = 0; i < branches; ++i) {
            const float side = (real(i) + 0.5F) / real(branches) * 2.0F - 1.0F;
            const float start = i % 2 == 0 ? 1.0F : 0.72F;
            grow({lerp2(limb.base, tip, start), limb.degrees + side * 44.0F + random_.range(-12.0F, 12.0F),
                  limb.size * random_.range(0.62F, 0.82F), limb.width * 0.6F, limb.order - 1});
        }
    }

    void putLeaves() {
        if (leafage_.leaves == 0) return;
        std::stable_sort(twigs_.begin(), twigs_.end(), [](Vec2 a, Vec2 b) { return a.y > b.y; });
        Leafage inner = leafage_;
        inner.light = mix(leafage_.dark, leafage_.light, 0.35F);
        inner.dark = shaded(leafage_.dark, 0.7F);
        for (const Vec2 twig : twigs_)
            drawCluster(pen_, twig + Vec2{0.01F, 0.02F}, inner, random_);
        for (const Vec2 twig : twigs_)
            drawCluster(pen_, twig, leafage_, random_);
    }

private:
    static Vec2 lerp2(Vec2 a, Vec2 b, float t) { return a + (b - a) * t; }

    const Pen pen_;
    Color bark_;
    Leafage leafage_;
    Random random_;
    std::vector<Vec2> twigs_;
};

void drawBroadTree(Canvas& canvas, const Leafage& leafage, std::uint32_t seed) {
    const Pen pen(canvas);
    Tree tree(pen.at({pen.right() / 2.0F, pen.bottom()}), rgb(0x3E3025), leafage, seed);
    tree.grow({{0.0F, 0.02F}, 2.0F, 0.265F, 0.058F, 5});
    tree.putLeaves();
}

void drawBlade(const Pen& pen, Vec2 root, float lean, float height, float width, Color color) {
    Vec2 from = root;
    for (int i = 1; i <= 6; ++i) {
        const float t = real(i) / 6.0F;
        const Vec2 to{root.x + lean * t * t, root.y - height * t * (1.0F - 0.15F * t)};
        pen.taper(from, to, width * (1.05F - t + 0.1F), width * (1.0F - t) + 0.1F * width,
                  shaded(color, 0.7F + 0.4F * t));
        from = to;
    }
}

void drawFrond(const Pen& pen, Vec2 root, float degrees, float reach, Random& random) {
    const Vec2 outward = polar(degrees, 1.0F);
    for (int i = 0; i < 34; ++i) {
        const float t = real(i) / 33.0F;
        const Vec2 at = root + outward * (reach * t) + Vec2{0.0F, reach * (0.8F * t * t - 0.3F * t)};
        const float leaf = reach * 0.33F * (1.0F - 0.75F * t);
        const Color color = mix(rgb(0x2C4A22), rgb(0x7E9A46), random.uniform() * (1.0F - 0.4F * t));
        for (const float side : {-1.0F, 1.0F}) {
            const Vec2 tip = at + polar(degrees + side * 48.0F, leaf) + Vec2{0.0F, leaf * 0.55F};
            pen.taper(at, tip, 0.016F, 0.004F, color);
        }
        pen.disc(at, 0.006F, rgb(0x6C7A3A));
    }
}

} // namespace

void drawTree(Canvas& canvas) {
    drawBroadTree(canvas, {rgb(0x1F3317), rgb(0x6F8A3C), 0.022F, 0.06F, 26}, 21);
}

void drawAutumnTree(Canvas& canvas) {
    drawBroadTree(canvas, {rgb(0x5B2D14), rgb(0xD08A2E), 0.024F, 0.055F, 20}, 45);
}

void drawBareTree(Canvas& canvas) { drawBroadTree(canvas, {{}, {}, 0.0F, 0.0F, 0}, 8); }

void drawPine(Canvas& canvas) {
    const Pen pen(canvas);
    const float x = pen.right() / 2.0F;
    const float h = pen.bottom();
    Random random(77);
    pen.taper({x, h}, {x, 0.04F * h}, 0.06F, 0.012F, rgb(0x3B2C20));
    for (int row = 0; row < 46; ++row) {
        const float t = 1.0F - real(row) / 45.0F;
        const float y = h * (0.04F + 0.84F * t);
        const float half = 0.04F + 0.41F * t * random.range(0.82F, 1.08F);
        for (int i = 0; i < 90; ++i) {
            const float side = random.range(-1.0F, 1.0F);
            const Vec2 from{x + side * half * 0.75F, y + std::abs(side) * half * 0.28F};
            const Vec2 to = from + Vec2{side * 0.08F, 0.022F + random.range(-0.014F, 0.04F)};
            const float light = clamp01(0.45F - side * 0.3F + random.range(-0.25F, 0.25F));
            pen.taper(from, to, 0.018F, 0.005F, mix(rgb(0x14261C), rgb(0x52704A), light));
        }
    }
}

void drawPalm(Canvas& canvas) {
    const Pen pen(canvas);
    Random random(15);
    const float x = pen.right() / 2.0F;
    const float crown = 0.52F;
    Vec2 from{x - 0.06F, pen.bottom()};
    for (int i = 1; i <= 40; ++i) {
        const float t = real(i) / 40.0F;
        const Vec2 to{x - 0.06F + 0.07F * t * t, lerp(pen.bottom(), crown, t)};
        pen.line(from, to, 0.05F - 0.02F * t, rgb(i % 2 == 0 ? 0x6E5A42 : 0x57462F));
        from = to;
    }
    for (const float degrees :
         {-110.0F, -75.0F, 105.0F, 70.0F, -40.0F, 38.0F, -10.0F, 12.0F, -92.0F, 90.0F}) {
        drawFrond(pen, {x + 0.01F, crown}, degrees, random.range(0.44F, 0.54F), random);
    }
    for (int i = 0; i < 5; ++i)
        pen.disc({x - 0.02F + 0.015F * real(i), crown + 0.02F}, 0.014F, rgb(0x6B4A22));
}

void drawBush(Canvas& canvas) {
    const Pen pen(canvas);
    Random random(51);
    const Leafage leafage{rgb(0x22351A), rgb(0x82954A), 0.034F, 0.12F, 46};
    for (int layer = 0; layer < 4; ++layer) {
        for (int i = 0; i < 18; ++i) {
            const float t = random.range(-1.0F, 1.0F);
            const float rise = std::sqrt(1.0F - t * t) * (pen.bottom() - 0.28F);
            const float y =
                pen.bottom() - 0.1F - rise * random.range(0.15F, 1.0F) * (1.0F - 0.2F * real(layer));
            drawCluster(pen, {pen.right() * (0.5F + 0.38F * t), y}, leafage, random);
        }
    }
}

void drawGrassTuft(Canvas& canvas) {
    const Pen pen(canvas);
    Random random(63);
    for (int i = 0; i < 120; ++i) {
        const float x = pen.right() * random.range(0.12F, 0.88F);
        const float lean = (x - pen.right() / 2.0F) * 0.5F + random.range(-0.18F, 0.18F);
        const float height = pen.bottom() * random.range(0.35F, 0.95F);
        const Color color = mix(rgb(0x4A6128), rgb(0xB0A85A), random.uniform() * random.uniform());
        drawBlade(pen, {x, pen.bottom()}, lean, height, random.range(0.014F, 0.03F), color);
    }
}

void drawReeds(Canvas& canvas) {
    const Pen pen(canvas);
    Random random(29);
    for (int i = 0; i < 46; ++i) {
        const float x = pen.right() * random.range(0.04F, 0.96F);
        const float height = pen.bottom() * random.range(0.45F, 0.9F);
        const float lean = random.range(-0.1F, 0.1F);
        drawBlade(pen, {x, pen.bottom()}, lean, height, 0.024F,
                  mix(rgb(0x5A6A34), rgb(0x9A8D4E), random.uniform()));
        if (i % 3 != 0) continue;
        const Vec2 tip{x + lean, pen.bottom() - height * 0.85F};
        pen.line(tip, tip - Vec2{-lean * 0.1F, 0.11F}, 0.034F, rgb(0x54341E));
        pen.line(tip - Vec2{0.0F, 0.11F}, tip - Vec2{0.0F, 0.17F}, 0.01F, rgb(0x8A7A48));
    }
}

void drawIvy(Canvas& canvas) {
    const Pen pen(canvas);
    Random random(88);
    for (int vine = 0; vine < 9; ++vine) {
        Vec2 at{pen.right() * random.range(0.05F, 0.95F), pen.bottom()};
        float degrees = random.range(-20.0F, 20.0F);
        const int steps = 18 + random.below(16);
        for (int i = 0; i < steps; ++i) {
            degrees = degrees * 0.85F + random.range(-30.0F, 30.0F);
            const Vec2 next = at + polar(degrees, 0.034F);
            pen.line(at, next, 0.008F, rgb(0x4A3A28));
            at = next;
            for (int leaf = 0; leaf < 5; ++leaf) {
                const Vec2 where = at + random.inside({-0.045F, -0.04F}, {0.045F, 0.04F});
                drawLeaf(pen, where, random.range(90.0F, 270.0F), random.range(0.04F, 0.062F),
                         mix(rgb(0x1E3A1C), rgb(0x6C8B48), random.uniform()));
            }
        }
    }
}

} // namespace demo
