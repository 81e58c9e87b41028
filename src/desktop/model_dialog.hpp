#pragma once

#include "controls/window.hpp"
#include "desktop/bind.hpp"

#include <QDialog>

namespace pelrath::desktop {

/// The real dialog of a window model: as large as the model says, where it says, gone when it is unloaded.
class ModelDialog : public QDialog {
public:
    ModelDialog(Window& model, Binder& binder);

    /// Runs it modally over the active window.
    void run();

    /// Closing it by its frame unloads the model.
    void reject() override;

private:
    Window& model_;
    Binder& binder_;
    Connections connections_;
};

} // namespace pelrath::desktop
