#pragma once

#include "controls/window.hpp"

namespace pelrath {

/// Shows windows of the program modally, as the platform shows them.
class ModalWindows {
public:
    virtual ~ModalWindows() = default;

    /// Shows the window over the active one and returns when it has been unloaded. The user's closing of its
    /// frame unloads it.
    virtual void showModal(Window& window) = 0;
};

} // namespace pelrath
