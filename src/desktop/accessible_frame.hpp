#pragma once

namespace pelrath::desktop {

/// From now on screen readers know the main window as a window: the toolkit tells them so of dialogs alone.
/// Frames within it are parts of it, and the strip of the saved files is a message.
void tellWindowsApart();

} // namespace pelrath::desktop
