#pragma once

#include "desktop/refresh.hpp"
#include "mainwindow/pane_copies.hpp"

class QContextMenuEvent;
class QListView;

namespace pelrath::desktop {

/// Copies out of a pane: its context menu, and the keys that this names.
class PaneMenu : public QObject {
public:
    PaneMenu(QListView& view, Pane pane, const PaneCopies& copies);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void showMenu(const QContextMenuEvent& event);
    void copy(PaneCopy what) const;

    QListView& view_;
    Pane pane_;
    const PaneCopies& copies_;
};

} // namespace pelrath::desktop
