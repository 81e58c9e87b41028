#pragma once

#include "desktop/refresh.hpp"
#include "desktop/viewport_widget.hpp"
#include "mainwindow/texture_look.hpp"
#include "platform/posix/private_folder.hpp"

#include <QImage>
#include <QObject>
#include <QPoint>

#include <optional>

class QContextMenuEvent;
class QFocusEvent;
class QKeyEvent;
class QMenu;
class QMouseEvent;
class QNativeGestureEvent;
class QWheelEvent;

namespace pelrath::desktop {

/// The user's hands on the viewport: turns wheel, drag, touchpad, keys and menu into calls of the look.
class ViewportLook : public QObject {
public:
    ViewportLook(ViewportWidget& viewport, TextureLook& look, Refresh& refresh);

    void perform(LookCommand command);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool press(const QMouseEvent& event);
    bool move(const QMouseEvent& event);
    bool turnWheel(const QWheelEvent& event);
    bool gesture(const QNativeGestureEvent& event);
    bool pressKey(const QKeyEvent& event);
    bool releaseKey(const QKeyEvent& event);
    void letGo();
    void showMenu(const QContextMenuEvent& event);
    void fill(QMenu& menu);
    void copy();
    [[nodiscard]] bool leaves(const QMouseEvent& event) const;
    void dragOut();
    [[nodiscard]] std::optional<NamedPicture> picture();
    /// The screen's own pixels.
    [[nodiscard]] Point pixels(const QPointF& place) const;

    ViewportWidget& viewport_;
    TextureLook& look_;
    Refresh& refresh_;
    PrivateFolder folder_;           ///< of the files that were dragged out
    std::optional<QPointF> dragged_; ///< where the mouse was last, while its button is down
    bool carried_ = false;           ///< with Ctrl: out of the window, wherever the mouse is
    bool holding_ = false;           ///< the key of a command that is on while it is down
    double turned_ = 0;              ///< steps of the wheel, less than a whole one
    double pinched_ = 0;             ///< powers of two, less than a step
};

} // namespace pelrath::desktop
