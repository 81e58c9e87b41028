#pragma once

#include <QList>
#include <QPoint>
#include <QRect>

namespace pelrath::desktop {

/// What panels leave free of every screen, the primary one's first.
[[nodiscard]] QList<QRect> freeAreas();

/// The area, of one or more, that a point is in or nearest to.
[[nodiscard]] QRect nearestArea(const QPoint& point, const QList<QRect>& areas);

/// The top left of the nearest place at which a dialog lies wholly in one area; of one that is too large,
/// the top and the left do.
[[nodiscard]] QPoint onScreen(const QRect& place, const QList<QRect>& areas);

/// Where a window of that size, frame included, begins: at a place that the user chose as far as enough of
/// its title bar to take hold of lies in an area; at 0, 0, which nobody chose, wholly in one.
[[nodiscard]] QPoint startingPlace(const QRect& wanted, const QList<QRect>& areas);

} // namespace pelrath::desktop
