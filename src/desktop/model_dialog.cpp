#include "desktop/model_dialog.hpp"

#include <QApplication>
#include <QScreen>

#include <algorithm>

namespace pelrath::desktop {

namespace {

// The window on which it is centred may be kept at a place that no screen has.
QPoint onScreen(const QRect& place) {
    const QScreen* screen = QGuiApplication::screenAt(place.center());
    if (screen == nullptr) screen = QGuiApplication::primaryScreen();
    const QRect area = screen->availableGeometry();
    const auto within = [](int wanted, int first, int room) {
        return std::clamp(wanted, first, first + std::max(room, 0));
    };
    return {within(place.left(), area.left(), area.width() - place.width()),
            within(place.top(), area.top(), area.height() - place.height())};
}

} // namespace

ModelDialog::ModelDialog(Window& model, Binder& binder) : model_(model), binder_(binder) {
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    connections_.push_back(model_.unloaded.connect([this] { done(0); }));
}

void ModelDialog::run() {
    setParent(QApplication::activeWindow(), windowFlags());
    setWindowTitle(toQString(model_.caption()));
    const QRect place = binder_.screen().pixels(model_.box());
    setFixedSize(place.size());
    move(onScreen(place.translated(QGuiApplication::primaryScreen()->geometry().topLeft())));
    binder_.refresh().flush();
    const Refresh::Wait inside{binder_.refresh()};
    if (!model_.isUnloaded()) exec();
    setParent(nullptr, windowFlags());
}

void ModelDialog::reject() {
    binder_.refresh().deliver([this] { model_.unload(); });
}

} // namespace pelrath::desktop
