#include "desktop/application.hpp"
#include "support/temporary_folder.hpp"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char* argv[]) {
    testing::InitGoogleTest(&argc, argv);
    if (testing::GTEST_FLAG(list_tests)) return RUN_ALL_TESTS(); // needs no display
    // A desktop of the tests' own: no editor that happens to be there is started.
    const pelrath::test::TemporaryFolder desktop;
    for (const char* place : {"XDG_DATA_HOME", "XDG_DATA_DIRS", "XDG_CONFIG_HOME"}) {
        qputenv(place, desktop.file(place).c_str());
    }
    pelrath::desktop::Application::prepareGraphics();
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const QApplication qt{argc, argv};
    QApplication::setQuitOnLastWindowClosed(true);
    return RUN_ALL_TESTS();
}

// Graphics drivers stay loaded to the end, so that a leak report can name them and leave them out.
extern "C" int dlclose(void* /*library*/) { return 0; }
