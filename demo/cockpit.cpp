#include "painters.hpp"

#include <cmath>

namespace pelrath::demo {

namespace {

constexpr unsigned cream = 0xE9E4D0;

/// What all instruments have: a bezel, a dark face with a sheen, screws. Paints between face and glass.
void instrument(Canvas& canvas, const std::function<void()>& face) {
    canvas.fillRect(QRectF{-0.5, -0.5, 1, 1}, blend({0, -0.5}, {0, 0.5}, {ink(0x3E4342), ink(0x2B2F2F)}));
    for (const int corner : {45, 135, 225, 315}) {
        canvas.disc(polar(corner, 0.62), 0.035, ink(0x141616));
        canvas.disc(polar(corner, 0.62), 0.028, ink(0x8C9190));
        canvas.line(polar(corner, 0.645), polar(corner, 0.595), 0.008, ink(0x202222));
    }
    canvas.disc({}, 0.485, blend({-0.3, -0.4}, {0.3, 0.4}, {ink(0x7E8484), ink(0x1A1C1C), ink(0x3A3E3E)}));
    canvas.disc({}, 0.45, ink(0x0A0B0B));
    canvas.disc({}, 0.43, blend({0, -0.43}, {0, 0.43}, {ink(0x101213), ink(0x1C1F20)}));
    canvas.save();
    QPainterPath inside;
    inside.addEllipse(QPointF{}, 0.43, 0.43);
    canvas.setClipPath(inside, Qt::IntersectClip);
    face();
    canvas.fill(polygon({{-0.5, -0.1}, {0.2, -0.5}, {-0.1, -0.5}, {-0.5, -0.3}}), ink(0xFFFFFF, 0.05));
    canvas.restore();
}

void hand(Canvas& canvas, double degrees, double length, double width) {
    for (const bool under : {true, false}) {
        moved(canvas, under ? QPointF{0.008, 0.012} : QPointF{}, 1, degrees, [&] {
            canvas.fill(polygon({{-width, 0.1},
                                 {width, 0.1},
                                 {width * 0.7, -length * 0.8},
                                 {0, -length},
                                 {-width * 0.7, -length * 0.8}}),
                        under ? ink(0x000000, 0.5) : ink(0xF4F0E2));
        });
    }
    canvas.disc({}, 0.045, blend({-0.04, -0.04}, {0.04, 0.04}, {ink(0x6A6E6E), ink(0x141616)}));
}

void paintDial(Canvas& canvas, const Dial& kind) {
    instrument(canvas, [&] {
        const QStringList numbers = QString{kind.numbers}.split(' ');
        const int gaps = static_cast<int>(numbers.size()) - (kind.sweep < 360 ? 1 : 0),
                  marks = gaps * kind.between;
        const auto angle = [&](double part) { return kind.from + kind.sweep * part; };
        const auto arc = [&](double from, double to, unsigned color) {
            QPainterPath path;
            path.arcMoveTo(QRectF{-0.41, -0.41, 0.82, 0.82}, 90 - angle(from));
            path.arcTo(QRectF{-0.41, -0.41, 0.82, 0.82}, 90 - angle(from), -kind.sweep * (to - from));
            canvas.stroke(path, 0.025, ink(color));
        };
        if (kind.green >= 0) arc(kind.green, kind.red, 0x3F9A55);
        if (kind.red >= 0) arc(kind.red, 1, 0xB5392C);
        for (int i = 0; i <= marks; ++i) {
            const bool large = i % kind.between == 0;
            const double at = angle(1.0 * i / marks);
            canvas.line(polar(at, large ? 0.35 : 0.375), polar(at, 0.415), large ? 0.014 : 0.006, ink(cream));
            if (large && i / kind.between < numbers.size())
                canvas.text(polar(at, 0.29), 0.062, numbers[i / kind.between], ink(cream), 0.9);
        }
        canvas.text({0, 0.15}, 0.038, kind.title, ink(cream, 0.85));
        if (kind.second >= 0) hand(canvas, angle(kind.second), 0.2, 0.026);
        hand(canvas, angle(kind.hand), 0.37, 0.016);
    });
}

void paintHorizon(Canvas& canvas) {
    instrument(canvas, [&] {
        moved(canvas, {0, 0.03}, 1, -14, [&] {
            canvas.fillRect(QRectF{-0.6, -0.6, 1.2, 0.6},
                            blend({0, -0.45}, {0, 0}, {ink(0x2E6DA4), ink(0x9CC4DC)}));
            canvas.fillRect(QRectF{-0.6, 0, 1.2, 0.6},
                            blend({0, 0}, {0, 0.45}, {ink(0x8A6238), ink(0x3E2A18)}));
            canvas.line({-0.6, 0}, {0.6, 0}, 0.01, ink(0xFFFFFF));
            for (int i = -3; i <= 3; ++i) {
                canvas.line({-0.05 - 0.02 * (i % 2 == 0), 0.07 * i}, {0.05 + 0.02 * (i % 2 == 0), 0.07 * i},
                            0.007, ink(0xFFFFFF, 0.8));
            }
        });
        for (const int mark : {-60, -30, 0, 30, 60}) {
            canvas.line(polar(mark, 0.38), polar(mark, 0.43), 0.014, ink(cream));
        }
        canvas.line({-0.26, 0.03}, {-0.09, 0.03}, 0.024, ink(0xF0A030), Qt::RoundCap);
        canvas.line({0.09, 0.03}, {0.26, 0.03}, 0.024, ink(0xF0A030), Qt::RoundCap);
        canvas.disc({0, 0.03}, 0.022, ink(0xF0A030));
    });
}

const Dial compassDial{"", "N 3 6 E 12 15 S 21 24 W 30 33", -40, 360, 6, 2, -1};

void crackle(Canvas& canvas, unsigned color) {
    canvas.texels(canvas.all(), [=](QPointF p) {
        return lit(rgb(color), 0.8 + 0.25 * noise(p * 130, 2, 1) + 0.2 * noise(p * 4, 3, 2));
    });
}

void toggle(Canvas& canvas, QPointF at, const char* name, bool on) {
    moved(canvas, at, 1, 0, [&] {
        canvas.disc({}, 0.05, brushed({}, 0x4A4E50, 0xB4B8B8));
        canvas.disc({}, 0.03, ink(0x16181A));
        const QPointF tip{0, on ? -0.085 : 0.085};
        canvas.line({0.012, 0.012}, tip + QPointF{0.02, 0.02}, 0.03, ink(0x000000, 0.4), Qt::RoundCap);
        canvas.line({}, tip, 0.03, ink(0xC9CDCD), Qt::RoundCap);
        canvas.line({-0.006, 0}, tip - QPointF{0.006, 0}, 0.008, ink(0xFFFFFF), Qt::RoundCap);
        canvas.text({0, 0.155}, 0.028, name, ink(cream));
    });
}

} // namespace

const Dial altimeter{"ALT  1000 FT", "0 1 2 3 4 5 6 7 8 9", 0, 360, 5, 0.32, 0.13};
const Dial airspeed{"KNOTS", "40 80 120 160 200 240 280", -160, 320, 4, 0.52, -1, 0.3, 0.85};
const Dial clockDial{"8 DAYS", "12 1 2 3 4 5 6 7 8 9 10 11", 0, 360, 5, 0.15, 0.845};
const Dial manifold{"BOOST", "-6 -2 2 6 10 14", -140, 280, 4, 0.6, -1, 0.4, 0.8};
const Dial oil{"OIL  C", "0 25 50 75 100 125", -120, 240, 5, 0.55, -1, 0.4, 0.8};
const Dial climb{"CLIMB", "4 2 0 2 4", -225, 270, 5, 0.62, -1};
const Dial fuel{"FUEL", "E 20 40 60 80 F", -120, 240, 2, 0.4, -1, 0.15, 0.99};

Painter dial(const Dial& kind) {
    return [kind](Canvas& canvas) { moved(canvas, {0.5, 0.5}, 1, 0, [&] { paintDial(canvas, kind); }); };
}

void horizon(Canvas& canvas) {
    moved(canvas, {0.5, 0.5}, 1, 0, [&] { paintHorizon(canvas); });
}

void instrumentPanel(Canvas& canvas) {
    crackle(canvas, 0x2E3335);
    const Dial* const small[] = {&clockDial, &manifold, &oil, &fuel, &climb, &oil};
    const Dial* const large[] = {&airspeed, nullptr, &altimeter, &climb, &compassDial, &manifold};
    for (int i = 0; i < 6; ++i) {
        const double x = 0.62 + 0.37 * (i % 3), y = 0.22 + 0.37 * (i / 3);
        moved(canvas, {x, y}, 0.34, 0,
              [&] { large[i] != nullptr ? paintDial(canvas, *large[i]) : paintHorizon(canvas); });
        moved(canvas, {i % 2 == 0 ? 0.16 + 0.0 : 1.65 + 0.2, 0.17 + 0.27 * (i / 2)}, 0.24, 0,
              [&] { paintDial(canvas, *small[i]); });
    }
    const char* const names[] = {"MAIN", "PUMP", "LAMPS", "PITOT", "RADIO", "HEAT"};
    for (int i = 0; i < 6; ++i) {
        toggle(canvas, {0.62 + 0.15 * i, 0.86}, names[i], i % 3 != 1);
    }
    for (const double x : {0.36, 1.66}) {
        canvas.disc({x, 0.9}, 0.035, ink(0x101212));
        canvas.glow({x, 0.9}, 0.07, ink(x < 1 ? 0x3FC060 : 0xD84030, 0.5));
        canvas.disc({x, 0.9}, 0.026, ink(x < 1 ? 0x57D07A : 0xE85A48));
    }
}

} // namespace pelrath::demo
