#pragma once

namespace pelrath::desktop {

/// From now on screen readers know the main window as a window: the toolkit tells them so of dialogs alone.
/// And the strip of the saved files is a message to them.
void tellWindowsApart();

} // namespace pelrath::desktop
