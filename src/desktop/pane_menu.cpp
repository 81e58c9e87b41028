#include "desktop/pane_menu.hpp"

#include "desktop/units.hpp"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QListView>
#include <QMenu>

namespace pelrath::desktop {

namespace {

QKeySequence keyOf(const PaneCopyEntry& entry) { return {entry.key, QKeySequence::PortableText}; }

} // namespace

PaneMenu::PaneMenu(QListView& view, Pane pane, const PaneCopies& copies, std::function<void(QMenu&)> add)
    : QObject(&view), view_(view), pane_(pane), copies_(copies), add_(std::move(add)) {
    view.installEventFilter(this);
    view.viewport()->installEventFilter(this);
}

bool PaneMenu::eventFilter(QObject* /*watched*/, QEvent* event) {
    if (event->type() == QEvent::ContextMenu) {
        showMenu(static_cast<QContextMenuEvent&>(*event));
        return true;
    }
    if (event->type() != QEvent::KeyPress) return false;
    const QKeySequence pressed{static_cast<QKeyEvent*>(event)->keyCombination()};
    for (const PaneCopyEntry& entry : paneCopyEntries()) {
        if (keyOf(entry) != pressed) continue;
        copy(entry.copy);
        return true;
    }
    return false;
}

void PaneMenu::showMenu(const QContextMenuEvent& event) {
    auto* menu = new QMenu{&view_};
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const PaneCopyEntry& entry : paneCopyEntries()) {
        QAction* action =
            menu->addAction(QString{entry.caption} + '\t' + keyOf(entry).toString(QKeySequence::NativeText));
        action->setEnabled(copies_.has(pane_, entry.copy));
        connect(action, &QAction::triggered, this, [this, what = entry.copy] { copy(what); });
    }
    menu->addSeparator();
    add_(*menu);
    const QRect row = view_.visualRect(view_.currentIndex());
    const bool byKey = event.reason() == QContextMenuEvent::Keyboard;
    menu->popup(byKey ? view_.viewport()->mapToGlobal(row.bottomLeft()) : event.globalPos());
}

void PaneMenu::copy(PaneCopy what) const {
    const std::string text = copies_.text(pane_, what);
    if (!text.empty()) QApplication::clipboard()->setText(toQString(text));
}

} // namespace pelrath::desktop
