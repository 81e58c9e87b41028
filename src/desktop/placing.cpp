#include "desktop/placing.hpp"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>

namespace pelrath::desktop {

namespace {

QPoint reachable(const QPoint& wanted, int width, const QList<QRect>& areas) {
    constexpr int hold = 120; // pixels
    const QRect area = nearestArea({wanted.x() + width / 2, wanted.y()}, areas);
    return {std::clamp(wanted.x(), area.left() + hold - width, area.right() - hold),
            std::clamp(wanted.y(), area.top(), area.bottom() - hold)};
}

} // namespace

QList<QRect> freeAreas() {
    QList<QRect> areas;
    for (const QScreen* screen : QGuiApplication::screens()) { // the primary one stands first
        areas << screen->availableGeometry();
    }
    return areas;
}

QRect nearestArea(const QPoint& point, const QList<QRect>& areas) {
    const auto distance = [&point](const QRect& area) {
        const QPoint inside{std::clamp(point.x(), area.left(), area.right()),
                            std::clamp(point.y(), area.top(), area.bottom())};
        return (point - inside).manhattanLength();
    };
    return *std::min_element(areas.begin(), areas.end(), [&distance](const QRect& one, const QRect& other) {
        return distance(one) < distance(other);
    });
}

QPoint onScreen(const QRect& place, const QList<QRect>& areas) {
    const QRect area = nearestArea(place.center(), areas);
    const auto within = [](int wanted, int first, int room) {
        return std::clamp(wanted, first, first + std::max(room, 0));
    };
    return {within(place.left(), area.left(), area.width() - place.width()),
            within(place.top(), area.top(), area.height() - place.height())};
}

QPoint startingPlace(const QRect& wanted, const QList<QRect>& areas) {
    if (!wanted.topLeft().isNull()) return reachable(wanted.topLeft(), wanted.width(), areas);
    return onScreen(wanted, {nearestArea(wanted.topLeft(), areas)});
}

} // namespace pelrath::desktop
