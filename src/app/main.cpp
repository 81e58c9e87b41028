#include "desktop/application.hpp"
#include "platform/posix/end_signals.hpp"

#include <QApplication>
#include <QSocketNotifier>

int main(int argc, char* argv[]) {
    const pelrath::EndSignals ends;
    pelrath::desktop::Application::prepareGraphics();
    QApplication qt{argc, argv};
    QApplication::setApplicationName("pelrath");
    pelrath::desktop::Application program;
    QSocketNotifier asked{ends.handle(), QSocketNotifier::Read};
    QObject::connect(&asked, &QSocketNotifier::activated, &program.window, [&] {
        ends.taken();
        program.window.close(); // as a user does
    });
    program.start();
    return QApplication::exec();
}
