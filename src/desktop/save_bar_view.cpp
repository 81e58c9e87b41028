#include "desktop/save_bar_view.hpp"

#include "desktop/elided_label.hpp"

#include <QAccessible>
#include <QPushButton>

#include <utility>

namespace pelrath::desktop {

SaveBarView::SaveBarView(QWidget* parent) : QFrame(parent), text_(new ElidedLabel{this}) {
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    text_->setObjectName("saveBarText");
}

void SaveBarView::bindTo(editing::SaveBar& model, Binder& binder) {
    // The letters that the window's own commands leave free.
    button(model.look, "saveBarLook", "&Look", binder);
    button(model.insert, "saveBarInsert", "I&nsert", binder);
    button(model.ignore, "saveBarIgnore", "I&gnore", binder);
    button(model.previous, "saveBarPrevious", "<", binder);
    button(model.next, "saveBarNext", ">", binder);
    binder.attach(model.text, *text_, [this, &model] { show(model); });
    binder.attach(model.strip, *this, [this, &model] { show(model); });
    binder.bind(model.farewell, *this);
}

void SaveBarView::show(const editing::SaveBar& model) {
    const QString words = model.strip.visible() ? toQString(model.text.caption()) : QString{};
    if (std::exchange(words_, words) == words || words.isEmpty()) return;
    raise();
    text_->showText(words);
    setAccessibleName(words);
    // A screen reader says what turns up without the focus only when it is told.
    QAccessibleEvent alert{this, QAccessible::Alert};
    QAccessible::updateAccessibility(&alert);
}

void SaveBarView::button(CommandButton& model, const QString& name, const QString& caption, Binder& binder) {
    auto* view = new QPushButton{this};
    view->setObjectName(name);
    view->setText(caption);
    view->setFocusPolicy(Qt::TabFocus);
    binder.attach(model, *view, [] {});
    connect(view, &QPushButton::clicked, view,
            [&binder, &model, view] { binder.refresh().operate(*view, [&model] { model.press(); }); });
}

} // namespace pelrath::desktop
