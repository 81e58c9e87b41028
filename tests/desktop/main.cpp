#include "desktop/application.hpp"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char* argv[]) {
    testing::InitGoogleTest(&argc, argv);
    if (testing::GTEST_FLAG(list_tests)) return RUN_ALL_TESTS(); // needs no display
    pelrath::desktop::Application::prepareGraphics();
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const QApplication qt{argc, argv};
    QApplication::setQuitOnLastWindowClosed(true);
    return RUN_ALL_TESTS();
}

// Graphics drivers stay loaded to the end, so that a leak report can name them and leave them out.
extern "C" int dlclose(void* /*library*/) { return 0; }
