#include "desktop/placing.hpp"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>

namespace pelrath::desktop {

QPoint reachable(const QPoint& wanted, int width) {
    constexpr int hold = 120; // pixels
    const QPoint grip{wanted.x() + width / 2, wanted.y()};
    const QScreen* nearest = QGuiApplication::primaryScreen();
    const auto distance = [&grip](const QScreen* screen) {
        const QRect area = screen->availableGeometry();
        const QPoint inside{std::clamp(grip.x(), area.left(), area.right()),
                            std::clamp(grip.y(), area.top(), area.bottom())};
        return (grip - inside).manhattanLength();
    };
    for (const QScreen* screen : QGuiApplication::screens()) {
        if (distance(screen) < distance(nearest)) nearest = screen;
    }
    const QRect area = nearest->availableGeometry();
    return {std::clamp(wanted.x(), area.left() + hold - width, area.right() - hold),
            std::clamp(wanted.y(), area.top(), area.bottom() - hold)};
}

QPoint onScreen(const QRect& place) {
    const QScreen* screen = QGuiApplication::screenAt(place.center());
    if (screen == nullptr) screen = QGuiApplication::primaryScreen();
    const QRect area = screen->availableGeometry();
    const auto within = [](int wanted, int first, int room) {
        return std::clamp(wanted, first, first + std::max(room, 0));
    };
    return {within(place.left(), area.left(), area.width() - place.width()),
            within(place.top(), area.top(), area.height() - place.height())};
}

} // namespace pelrath::desktop
