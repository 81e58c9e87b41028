#include "desktop/qt_file_associations.hpp"

#include <QApplication>
#include <QWidget>

#include <utility>

namespace pelrath::desktop {

namespace {

constexpr int startingTime = 8000; // milliseconds in which a started program is expected to show its window

} // namespace

QtFileAssociations::QtFileAssociations(Refresh& refresh) : refresh_(refresh) {
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this, [this](Qt::ApplicationState state) {
        if (state == Qt::ApplicationInactive) comeBack();
    });
}

void QtFileAssociations::open(const std::string& file, const Failed& failed) {
    background_.run([this, file, failed](const Background::Post& post) {
        try {
            DesktopAssociations::open(file); // as long as the program runs
        } catch (const RuntimeError& error) {
            post([this, failed, error] { tell(failed, error); });
        }
    });
    guarding_ = true;
    sinceStart_.start();
}

void QtFileAssociations::tell(const Failed& failed, const RuntimeError& error) {
    refresh_.gate().whenQuiet(*this, [this, failed, error] {
        guarding_ = false; // no window comes
        refresh_.deliver([&] { failed(error); });
    });
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
