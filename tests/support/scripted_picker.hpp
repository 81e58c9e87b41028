#pragma once

#include "platform/folder_picker.hpp"
#include "support/values.hpp"

#include <functional>

namespace pelrath::test {

/// A folder picker with a user who does what the test says, and a record of what the dialog is told
/// meanwhile.
class ScriptedPicker : public FolderPicker, private FolderPicker::Dialog {
public:
    Choice choose(const Request& request, Listener& listener) override {
        asked = request;
        ++shown;
        listener_ = &listener;
        if (early) early();
        listener.initialized(*this);
        return user ? user() : Choice{};
    }
    // What the user does, from inside `user`.
    void select(const std::string& path) { listener_->selectionChanged(*this, path); }
    bool confirmMissing(const std::string& typed) { return listener_->validationFailed(*this, typed); }

    Request asked;
    int shown = 0;
    Log told;
    std::function<Choice()> user;
    std::function<void()> early; ///< before the dialog is known

private:
    void setStatusText(const std::string& text) override { told.add("status[" + text + "]"); }
    void enableOk(bool enabled) override { told.add(enabled ? "ok" : "no-ok"); }
    void setSelection(const std::string& path) override { told.add("select[" + path + "]"); }
    void setFocus() override { told.add("focus"); }

    Listener* listener_ = nullptr;
};

} // namespace pelrath::test
