#pragma once

#include <QPoint>

namespace pelrath::desktop {

/// The place nearest to the wanted one at which enough of a window's title bar to take hold of lies on a
/// screen; `width` is the window's, in pixels.
[[nodiscard]] QPoint reachable(const QPoint& wanted, int width);

} // namespace pelrath::desktop
