#include "batch/console/console.hpp"
#include "platform/posix/end_signals.hpp"
#include "platform/posix/program_folder.hpp"
#include "platform/posix/terminal.hpp"

#include <exception>
#include <iostream>

int main(int argc, char* argv[]) try {
    using namespace pelrath;
    holdStandardHandles();
    const EndSignals ends;
    outliveReaders();
    const batch::Console console{std::cin,
                                 std::cout,
                                 std::cerr,
                                 errorsGoToTerminal(),
                                 programFolder(),
                                 executablePath(),
                                 [&ends] { return ends.asked(); },
                                 otherProgramFolder()};
    return batch::run({argv + 1, argv + argc}, console);
} catch (const std::exception& error) {
    std::cerr << "pelrath-batch: " << error.what() << ".\n";
    return pelrath::batch::NotAll;
}
