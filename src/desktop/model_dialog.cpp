#include "desktop/model_dialog.hpp"

#include "desktop/placing.hpp"

#include <QApplication>
#include <QTimer>

namespace pelrath::desktop {

namespace {

constexpr int readingTime = 2500; // milliseconds
constexpr int glance = 100;       // milliseconds

// Around a window that is not shown yet; the model's box has its own middle where the framed dialog has it.
constexpr QSize usualFrame{2, 24}; // pixels

QRect centred(const QSize& size, const QPoint& middle) {
    QRect place{{}, size};
    place.moveCenter(middle);
    return place;
}

} // namespace

ModelDialog::ModelDialog(Window& model, Binder& binder) : model_(model), binder_(binder) {
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    connections_.push_back(model_.unloaded.connect([this] { done(0); }));
    connect(&closing_, &QTimer::timeout, this, [this] { closeWhenRead(); });
}

void ModelDialog::run() {
    const QWidget* owner = QApplication::activeWindow();
    setParent(QApplication::activeWindow(), windowFlags());
    takeSize();
    QRect place = binder_.screen().pixels(model_.box());
    // A model keeps the place that its window has when it is not maximized.
    if (owner != nullptr && owner->isMaximized()) place.moveCenter(owner->frameGeometry().center());
    const QSize frame = owner != nullptr ? owner->frameGeometry().size() - owner->size() : usualFrame;
    move(onScreen(centred(place.size() + frame, place.center()), freeAreas()));
    activate();
    setWindowTitle(toQString(model_.caption()));
    const Gate::Turn turn{binder_.refresh().gate(), this};
    if (!model_.isUnloaded()) exec();
    closing_.stop();
    if (!model_.isUnloaded()) binder_.refresh().deliver([this] { model_.unload(); }); // given up
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
    const QRect place = centred(size(), frameGeometry().center());
    model_.moveTo(screen.twips(place.left()), screen.twips(place.top()));
}

void ModelDialog::reject() {
    if (binder_.refresh().act(*this, [this] { model_.unload(); })) return;
    binder_.refresh().gate().wishStop();
    // An operation runs. Its end is waited for, and then what it says is to be seen.
    quietTime_ = 0;
    closing_.start(glance);
}

void ModelDialog::closeWhenRead() {
    quietTime_ = binder_.refresh().gate().admits(*this) ? quietTime_ + glance : 0;
    if (quietTime_ < readingTime) return;
    closing_.stop();
    reject();
}

} // namespace pelrath::desktop
