#pragma once

namespace pelrath {

/// Whether a menu, a file manager or the like started the program, whose user sees no standard error. To be
/// asked before the toolkit begins, which takes their marks out of the environment.
[[nodiscard]] bool isStartedByDesktop();

} // namespace pelrath
