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

} // namespace pelrath::demo
