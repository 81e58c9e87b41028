#pragma once

#include "controls/window.hpp"
#include "desktop/bind.hpp"

#include <QDialog>
#include <QTimer>

namespace pelrath::desktop {

/// The real dialog of a window model: where the model says, as large as it says, for the user to resize
/// where it names a smallest size, gone when it is unloaded.
class ModelDialog : public QDialog {
public:
    ModelDialog(Window& model, Binder& binder);

    /// Runs it modally over the active window.
    void run();
    /// What the model does when it becomes the program's active window.
    void activate();

    /// Closing it by its frame unloads the model; during an operation of its own, a while after that has
    /// ended.
    void reject() override;

protected:
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void takeSize();
    void closeWhenRead();

    Window& model_;
    Binder& binder_;
    Connections connections_;
    QTimer closing_;    ///< by its frame, asked for during an operation
    int quietTime_ = 0; ///< milliseconds since that has ended
};

} // namespace pelrath::desktop
