#include "painters.hpp"

#include <cmath>

namespace pelrath::demo {

Painter puffs(const Puffs& kind) {
    return [kind](Canvas& canvas) {
        const QPointF middle{canvas.right / 2, canvas.bottom / 2};
        const auto density = [&](QPointF p) {
            const QPointF to{(p.x() - middle.x()) / canvas.right, (p.y() - middle.y()) / canvas.bottom};
            const double floor = rise(kind.base + 0.12, kind.base, to.y());
            const QPointF bent = p + QPointF{noise(p * 7, 3, 3), noise(p * 7, 3, 4)} * 0.12;
            return (1.15 - 2.5 * std::hypot(to.x(), to.y()) + 1.5 * (noise(bent * 5.5, 5, kind.seed) - 0.5)) *
                   floor;
        };
        canvas.texels(canvas.all(), [&](QPointF p) {
            const double here = density(p), towardsLight = density(p - QPointF{0.018, 0.03});
            const double light = 0.55 + 1.5 * (here - towardsLight) - 0.25 * (p.y() - middle.y());
            Color color = mix(rgb(kind.shade), rgb(kind.light), light);
            if (kind.core != 0) {
                const double heat = here + 0.25 * light;
                color = mix(mix(color, rgb(kind.core), rise(0.25, 0.75, heat)), rgb(0xFFF6D8),
                            rise(0.75, 1.25, heat));
            }
            color.setW(static_cast<float>(kind.density * rise(0, 0.45, here)));
            return color;
        });
    };
}

void cirrus(Canvas& canvas) {
    canvas.texels(canvas.all(), [](QPointF p) {
        const QPointF bent = p + QPointF{0, 0.16 * noise(p * 2, 3, 21)};
        const double strands = noise({bent.x() * 3 - bent.y() * 2, bent.y() * 26 + bent.x() * 9}, 5, 22);
        const double inside = rise(0, 0.15, std::min({p.x(), p.y(), 1 - p.x(), 1 - p.y()}));
        return rgb(0xF6F8FB, 0.9 * inside * rise(0.42, 0.78, strands * 0.6 + noise(p * 3, 3, 23) * 0.45));
    });
}

void sunGlow(Canvas& canvas) {
    const QPointF middle{0.5, 0.5};
    canvas.glow(middle, 0.5, ink(0xFFC25A, 0.55));
    canvas.glow(middle, 0.3, ink(0xFFE6A8, 0.7));
    for (int i = 0; i < 24; ++i) {
        const double reach = i % 2 == 0 ? 0.48 : 0.36;
        const QPointF tip = middle + polar(15 * i, reach), side = polar(15 * i + 90, 0.012);
        canvas.fill(polygon({middle + side, tip, middle - side}),
                    blend(middle, tip, {ink(0xFFF2CC, 0.7), ink(0xFFF2CC, 0)}));
    }
    canvas.glow(middle, 0.16, ink(0xFFFFFF));
}

void crater(Canvas& canvas) {
    canvas.texels(canvas.all(), [](QPointF p) {
        const QPointF to = p - QPointF{0.5, 0.5};
        const double far = std::hypot(to.x(), to.y());
        const double rays = noise(to * 5 / std::max(far, 0.01) + QPointF{9, 9}, 4, 31),
                     ring = far + 0.06 * (noise(p * 7, 4, 32) - 0.5);
        const double slope = (to.x() + to.y()) / std::max(far, 0.01);
        const double light =
            ring < 0.2 ? 0.55 + 0.35 * slope * rise(0, 0.2, ring) : 1 - 0.35 * slope * rise(0.32, 0.2, ring);
        const Color earth = lit(mix(rgb(0x5A4634), rgb(0x8A6E50), noise(p * 20, 4, 33)), light);
        Color color =
            mix(mix(rgb(0x17120E), earth, rise(0.02, 0.16, ring)), rgb(0x4A3A2A), rise(0.24, 0.4, ring));
        color.setW(static_cast<float>(rise(0.12 + 0.42 * rays, 0.02 + 0.42 * rays, far - 0.16)));
        return color;
    });
}

} // namespace pelrath::demo
