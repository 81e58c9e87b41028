#pragma once

#include <QPoint>
#include <QRect>

namespace pelrath::desktop {

/// The place nearest to the wanted one at which enough of a window's title bar to take hold of lies on a
/// screen; `width` is the window's, in pixels.
[[nodiscard]] QPoint reachable(const QPoint& wanted, int width);

/// The top left of the nearest place at which a dialog lies wholly on one screen, as far as it fits there.
[[nodiscard]] QPoint onScreen(const QRect& place);

} // namespace pelrath::desktop
