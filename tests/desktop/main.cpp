#include "desktop/application.hpp"

#include <QApplication>

#include <chrono>
#include <filesystem>
#include <thread>
#include <utility>

#include <gtest/gtest.h>

namespace {

int runTests(int argc, char* argv[]) {
    pelrath::desktop::Application::prepareGraphics();
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const QApplication qt{argc, argv};
    QApplication::setQuitOnLastWindowClosed(true);
    return RUN_ALL_TESTS();
}

// A thread that has been told to end may still be ending, and takes the leak checker down with it. Those that live on do no harm.
void letThreadsEnd() {
    const auto threads = [] { return std::distance(std::filesystem::directory_iterator{"/proc/self/task"}, {}); };
    auto before = threads();
    for (int steady = 0; before > 1 && steady < 10; ++steady) {
        std::this_thread::sleep_for(std::chrono::milliseconds{20});
        if (threads() != std::exchange(before, threads())) steady = 0;
    }
}

} // namespace

int main(int argc, char* argv[]) {
    testing::InitGoogleTest(&argc, argv);
    if (testing::GTEST_FLAG(list_tests)) return RUN_ALL_TESTS(); // needs no display
    const int result = runTests(argc, argv);
    letThreadsEnd();
    return result;
}

// Graphics drivers stay loaded to the end, so that a leak report can name them and leave them out.
extern "C" int dlclose(void* /*library*/) { return 0; }
