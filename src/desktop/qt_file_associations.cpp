#include "desktop/qt_file_associations.hpp"

#include <QApplication>
#include <QWidget>

#include <utility>

namespace pelrath::desktop {

namespace {

constexpr int startingTime = 8000; // milliseconds in which a started program is expected to show its window

} // namespace

QtFileAssociations::QtFileAssociations() {
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this, [this](Qt::ApplicationState state) {
        if (state == Qt::ApplicationInactive) comeBack();
    });
}

void QtFileAssociations::open(const std::string& file) {
    desktop_.open(file);
    guarding_ = true;
    sinceStart_.start();
}

// Not every window manager and program can be asked to leave the focus alone. Once is enough: what takes it
// again is the user.
void QtFileAssociations::comeBack() {
    if (!std::exchange(guarding_, false) || sinceStart_.elapsed() > startingTime) return;
    QWidget* window = QApplication::activeModalWidget();
    if (window == nullptr) return;
    window->raise();
    window->activateWindow();
}

} // namespace pelrath::desktop
