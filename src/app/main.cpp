#include "desktop/application.hpp"
#include "opening/command_line.hpp"
#include "platform/posix/end_signals.hpp"
#include "platform/posix/started_by.hpp"
#include "platform/posix/terminal.hpp"

#include <QApplication>
#include <QSocketNotifier>

#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

namespace {

constexpr int wrongWords = 2; // exit code

int runWindow(int& argc, char* argv[], const pelrath::CommandLine& asked) {
    const pelrath::EndSignals ends;
    pelrath::desktop::Application::prepareGraphics();
    QApplication qt{argc, argv};
    QApplication::setApplicationName("pelrath");
    pelrath::desktop::Application program;
    QSocketNotifier asksForEnd{ends.handle(), QSocketNotifier::Read};
    QObject::connect(&asksForEnd, &QSocketNotifier::activated, &program.window, [&] {
        ends.taken();
        program.window.close(); // as a user does
    });
    program.start(asked);
    return QApplication::exec();
}

} // namespace

int main(int argc, char* argv[]) {
    using Wish = pelrath::CommandLine::Wish;
    pelrath::holdStandardHandles();
    const std::vector<std::string> words{argv + std::min(argc, 1), argv + argc};
    const pelrath::CommandLine asked = pelrath::readCommandLine(words);
    if (asked.wish == Wish::Print) {
        std::cout << asked.text << std::flush;
        return std::cout ? EXIT_SUCCESS : EXIT_FAILURE;
    }
    if (asked.wish == Wish::Refuse && !pelrath::isStartedByDesktop()) {
        std::cerr << "pelrath: " << asked.text << '\n';
        return wrongWords;
    }
    return runWindow(argc, argv, asked);
}
