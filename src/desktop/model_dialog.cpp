#include "desktop/model_dialog.hpp"

#include "desktop/placing.hpp"

#include <QApplication>

namespace pelrath::desktop {

ModelDialog::ModelDialog(Window& model, Binder& binder) : model_(model), binder_(binder) {
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    connections_.push_back(model_.unloaded.connect([this] { done(0); }));
}

void ModelDialog::run() {
    const QWidget* owner = QApplication::activeWindow();
    setParent(QApplication::activeWindow(), windowFlags());
    takeSize();
    QRect place = binder_.screen().pixels(model_.box());
    // A model keeps the place that its window has when it is not maximized.
    if (owner != nullptr && owner->isMaximized()) place.moveCenter(owner->frameGeometry().center());
    move(onScreen(place));
    activate();
    setWindowTitle(toQString(model_.caption()));
    const Refresh::Wait inside{binder_.refresh()};
    if (!model_.isUnloaded()) exec();
    if (!model_.isUnloaded()) reject(); // the program's end ends what is open in it
    setParent(nullptr, windowFlags());
}

void ModelDialog::takeSize() {
    const QtScreen& screen = binder_.screen();
    const QSize size = screen.pixels(model_.box()).size();
    const QSize smallest{screen.pixels(model_.smallestWidth()), screen.pixels(model_.smallestHeight())};
    const bool resizable = !smallest.isEmpty();
    setMinimumSize(resizable ? smallest : size);
    setMaximumSize(resizable ? QSize{QWIDGETSIZE_MAX, QWIDGETSIZE_MAX} : size);
    resize(size);
}

void ModelDialog::activate() {
    binder_.refresh().deliver([this] { model_.activated.emit(); });
}

void ModelDialog::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    const QtScreen& screen = binder_.screen();
    if (size() == screen.pixels(model_.box()).size()) return; // the model's own, rounded to pixels
    binder_.refresh().deliver(
        [this, &screen] { model_.setSize(screen.twips(width()), screen.twips(height())); });
}

void ModelDialog::moveEvent(QMoveEvent* event) {
    QDialog::moveEvent(event);
    const QtScreen& screen = binder_.screen();
    model_.moveTo(screen.twips(frameGeometry().left()), screen.twips(frameGeometry().top()));
}

void ModelDialog::reject() {
    binder_.refresh().deliver([this] { model_.unload(); });
}

} // namespace pelrath::desktop
