#pragma once

#include "controls/modal_windows.hpp"
#include "desktop/model_dialog.hpp"

#include <functional>
#include <map>

namespace pelrath::desktop {

/// Shows the real dialogs of window models.
class QtModalWindows : public ModalWindows {
public:
    void add(Window& model, ModelDialog& dialog) { dialogs_[&model] = &dialog; }
    void showModal(Window& window) override {
        dialogs_.at(&window)->run();
        if (returned) returned();
    }

    std::function<void()> returned; ///< runs after each dialog

private:
    std::map<Window*, ModelDialog*> dialogs_;
};

} // namespace pelrath::desktop
