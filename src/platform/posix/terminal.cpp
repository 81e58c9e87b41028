#include "platform/posix/terminal.hpp"

#include <csignal>

#include <fcntl.h>
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

void holdStandardHandles() {
    for (int handle = STDIN_FILENO; handle <= STDERR_FILENO; ++handle) {
        if (::fcntl(handle, F_GETFD) >= 0) continue;
        // The lowest free number is this one. Programs that are started have it as well.
        (void)::open("/dev/null", handle == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    }
}

} // namespace pelrath
