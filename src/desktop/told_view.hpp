#pragma once

#include "desktop/bind.hpp"
#include "several/told_lines.hpp"

#include <QListView>

class QMenu;

namespace pelrath::desktop {

/// Shows a list's lines, each shortened in its middle where the place is narrower; problems have a sign.
/// What is selected can be copied.
class ToldView : public QListView {
public:
    explicit ToldView(QWidget* parent);

    void bindTo(several::ToldList& list, Binder& binder);

    /// The selected lines, one below the other, as many as that at the most.
    [[nodiscard]] QString selectedText(qsizetype most) const;
    /// Whoever takes it deletes it.
    [[nodiscard]] QMenu* createStandardContextMenu();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void copy() const;
};

} // namespace pelrath::desktop
