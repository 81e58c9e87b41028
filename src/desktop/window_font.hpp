#pragma once

#include "desktop/refresh.hpp"

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <vector>

namespace pelrath::desktop {

/// The one font of a window whose controls have fixed places. It is the desktop's own where every caption
/// finds room in its place; else it is narrowed, then made smaller, until all of them do. It follows the
/// desktop's font.
class WindowFont : public QObject {
public:
    /// The font of the window that the view is in; made when it is first asked for.
    [[nodiscard]] static WindowFont& of(const QWidget& view, Refresh& refresh);

    /// The view's text or place has changed, and is to fit from the next flush on. A view that has a font of
    /// its own does not count.
    void fit(QWidget& view);

protected:
    bool eventFilter(QObject* window, QEvent* event) override;

private:
    WindowFont(QWidget& window, Refresh& refresh);
    void choose();
    [[nodiscard]] bool holds(const QFont& font);

    QWidget& window_;
    Refresh& refresh_;
    Binding* choosing_;
    std::vector<QPointer<QWidget>> views_;
};

} // namespace pelrath::desktop
