#pragma once

#include <QList>
#include <QPoint>
#include <QRect>

namespace pelrath::desktop {

/// What panels leave free of every screen, the primary one's first.
[[nodiscard]] QList<QRect> freeAreas();

/// The area, of one or more, that a point is in or nearest to.
[[nodiscard]] QRect nearestArea(const QPoint& point, const QList<QRect>& areas);

/// The place nearest to the wanted one at which enough of a window's title bar to take hold of lies in an
/// area; `width` is the window's, in pixels.
[[nodiscard]] QPoint reachable(const QPoint& wanted, int width, const QList<QRect>& areas);

/// The top left of the nearest place at which a dialog lies wholly in one area; of one that is too large,
/// the top and the left do.
[[nodiscard]] QPoint onScreen(const QRect& place, const QList<QRect>& areas);

} // namespace pelrath::desktop
