#include "desktop/text_menus.hpp"

#include "desktop/told_view.hpp"
#include "desktop/units.hpp"
#include "platform/posix/named_files.hpp"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>

namespace pelrath::desktop {

namespace {

constexpr qsizetype mostLines = 100; // of a list, whose files are looked for on the disk

// A label's own menu is not given out.
QMenu* labelMenu(QLabel& label) {
    auto* menu = new QMenu{&label};
    QAction* copy = menu->addAction("&Copy");
    copy->setEnabled(label.hasSelectedText());
    QObject::connect(copy, &QAction::triggered, &label,
                     [&label] { QApplication::clipboard()->setText(label.selectedText()); });
    QObject::connect(menu->addAction("Select &All"), &QAction::triggered, &label,
                     [&label] { label.setSelection(0, static_cast<int>(label.text().size())); });
    return menu;
}

// A text that may name files, and how its menu is made.
struct MenuText {
    QString text;
    std::function<QMenu*()> make;
};

MenuText menuTextOf(QWidget& view) {
    auto* label = qobject_cast<QLabel*>(&view);
    if (label != nullptr && qobject_cast<QMessageBox*>(label->window()) != nullptr) {
        return {label->text(), [label] { return labelMenu(*label); }};
    }
    if (auto* line = qobject_cast<QLineEdit*>(&view)) {
        return {line->text(), [line] { return line->createStandardContextMenu(); }};
    }
    if (auto* told = dynamic_cast<ToldView*>(view.parentWidget())) { // the view is inside it
        return {told->selectedText(mostLines), [told] { return told->createStandardContextMenu(); }};
    }
    auto* text = qobject_cast<QPlainTextEdit*>(&view);
    if (text == nullptr) text = qobject_cast<QPlainTextEdit*>(view.parentWidget()); // the view inside it
    if (text != nullptr) {
        return {text->toPlainText(), [text] { return text->createStandardContextMenu(); }};
    }
    return {};
}

} // namespace

TextMenus::TextMenus(Refresh& refresh, FileManager& files) : refresh_(refresh), files_(files) {
    qApp->installEventFilter(this);
}

bool TextMenus::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::ContextMenu || !watched->isWidgetType()) return false;
    auto& view = static_cast<QWidget&>(*watched);
    return refresh_.gate().admits(view) && showMenu(view, static_cast<QContextMenuEvent&>(*event));
}

bool TextMenus::showMenu(QWidget& view, const QContextMenuEvent& event) {
    const MenuText text = menuTextOf(view);
    if (!text.make) return false;
    const std::vector<std::string> named = filesNamedIn(toUtf8(text.text));
    const auto more = more_.find(&view);
    if (named.empty() && more == more_.end()) return false;
    QMenu* menu = text.make();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addSeparator();
    if (more != more_.end()) more->second(*menu);
    QAction* show = menu->addAction("Show in &File Manager");
    show->setEnabled(!named.empty());
    connect(show, &QAction::triggered, this, [this, named] { files_.show(named); });
    menu->popup(event.globalPos());
    return true;
}

} // namespace pelrath::desktop
