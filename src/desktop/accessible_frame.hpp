#pragma once

namespace pelrath::desktop {

/// From now on screen readers know the main window as a window: the toolkit tells them so of dialogs alone.
void tellWindowsApart();

} // namespace pelrath::desktop
