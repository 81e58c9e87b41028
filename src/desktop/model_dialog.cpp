#include "desktop/model_dialog.hpp"

#include <QApplication>
#include <QScreen>

namespace pelrath::desktop {

ModelDialog::ModelDialog(Window& model, Binder& binder) : model_(model), binder_(binder) {
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    connections_.push_back(model_.unloaded.connect([this] { done(0); }));
}

void ModelDialog::run() {
    setParent(QApplication::activeWindow(), windowFlags());
    setWindowTitle(toQString(model_.caption()));
    const QRect place = binder_.screen().pixels(model_.box());
    setFixedSize(place.size());
    move(QGuiApplication::primaryScreen()->geometry().topLeft() + place.topLeft());
    binder_.refresh().flush();
    const Refresh::Wait inside{binder_.refresh()};
    if (!model_.isUnloaded()) exec();
    setParent(nullptr, windowFlags());
}

void ModelDialog::reject() {
    binder_.refresh().deliver([this] { model_.unload(); });
}

} // namespace pelrath::desktop
