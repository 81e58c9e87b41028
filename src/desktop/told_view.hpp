#pragma once

#include "desktop/bind.hpp"
#include "several/told_lines.hpp"

#include <QListView>

namespace pelrath::desktop {

/// Shows a list's lines, each shortened in its middle where the place is narrower; problems have a sign.
/// What is selected can be copied.
class ToldView : public QListView {
public:
    explicit ToldView(QWidget* parent);

    void bindTo(several::ToldList& list, Binder& binder);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void copy() const;
};

} // namespace pelrath::desktop
