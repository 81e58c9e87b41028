#include "desktop/application.hpp"

#include <QApplication>

int main(int argc, char* argv[]) {
    pelrath::desktop::Application::prepareGraphics();
    QApplication qt{argc, argv};
    QApplication::setApplicationName("pelrath");
    pelrath::desktop::fitFontToLayout();
    pelrath::desktop::Application program;
    program.start();
    return QApplication::exec();
}
