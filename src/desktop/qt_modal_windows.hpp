#pragma once

#include "controls/modal_windows.hpp"
#include "desktop/model_dialog.hpp"

#include <algorithm>
#include <functional>
#include <map>
#include <vector>

namespace pelrath::desktop {

/// Shows the real dialogs of window models. What a dialog was opened from is activated behind its close.
class QtModalWindows : public ModalWindows {
public:
    void add(Window& model, ModelDialog& dialog) { dialogs_[&model] = &dialog; }
    void showModal(Window& window) override {
        ModelDialog* const dialog = dialogs_.at(&window);
        if (std::find(open_.begin(), open_.end(), dialog) != open_.end()) return; // it would own itself
        open_.push_back(dialog);
        dialog->run();
        open_.pop_back();
        if (!open_.empty()) {
            open_.back()->activate();
        } else if (returned) {
            returned();
        }
    }

    std::function<void()> returned; ///< runs behind a dialog that was opened from the main window

private:
    std::map<Window*, ModelDialog*> dialogs_;
    std::vector<ModelDialog*> open_;
};

} // namespace pelrath::desktop
