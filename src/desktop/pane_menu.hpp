#pragma once

#include "desktop/refresh.hpp"
#include "mainwindow/pane_copies.hpp"

#include <functional>

class QContextMenuEvent;
class QListView;
class QMenu;

namespace pelrath::desktop {

/// Copies out of a pane: its context menu, and the keys that this names. The menu ends with what else is
/// added.
class PaneMenu : public QObject {
public:
    PaneMenu(QListView& view, Pane pane, const PaneCopies& copies, std::function<void(QMenu&)> add);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void showMenu(const QContextMenuEvent& event);
    void copy(PaneCopy what) const;

    QListView& view_;
    Pane pane_;
    const PaneCopies& copies_;
    std::function<void(QMenu&)> add_;
};

} // namespace pelrath::desktop
