#include "platform/posix/terminal.hpp"

#include <csignal>

#include <unistd.h>

namespace pelrath {

bool errorsGoToTerminal() { return ::isatty(STDERR_FILENO) == 1; }

void outliveReaders() {
    struct sigaction action {};
    action.sa_handler = [](int) {}; // ignored, it would stay so in programs that are started
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    ::sigaction(SIGPIPE, &action, nullptr);
}

} // namespace pelrath
