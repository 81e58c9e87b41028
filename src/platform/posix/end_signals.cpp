#include "platform/posix/end_signals.hpp"

#include "platform/runtime_error.hpp"

#include <array>
#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <poll.h>

namespace pelrath {

namespace {

constexpr std::array ends{SIGTERM, SIGINT, SIGHUP};

volatile std::sig_atomic_t wakeUp = -1; // what a handler writes to

void askForTheEnd(int /*signal*/) {
    const int before = errno;
    [[maybe_unused]] const ssize_t sent = ::write(wakeUp, "", 1); // a full pipe wakes up as well
    errno = before;
}

// Ignored, it would stay so in programs that are started.
void nothing(int /*signal*/) {}

void react(int signal, void (*handler)(int)) {
    struct sigaction action {};
    ::sigaction(signal, nullptr, &action);
    if (action.sa_handler == SIG_IGN) return; // as whoever started the program wants it
    action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigfillset(&action.sa_mask);
    ::sigaction(signal, &action, nullptr);
}

} // namespace

EndSignals::EndSignals() {
    int handles[2];
    if (::pipe2(handles, O_CLOEXEC | O_NONBLOCK) != 0) throw makeSystemError(errno, "EndSignals", "");
    reading_ = FileHandle{handles[0]};
    writing_ = FileHandle{handles[1]};
    wakeUp = writing_.get();
    for (const int signal : ends) {
        react(signal, askForTheEnd);
    }
    react(SIGXFSZ, nothing);
}

EndSignals::~EndSignals() {
    for (const int signal : ends) {
        react(signal, SIG_DFL);
    }
    react(SIGXFSZ, SIG_DFL);
    wakeUp = -1;
}

bool EndSignals::asked() const {
    pollfd waiting{handle(), POLLIN, 0};
    return ::poll(&waiting, 1, 0) > 0;
}

void EndSignals::taken() const {
    char byte = 0;
    while (::read(reading_.get(), &byte, 1) > 0) {
    }
}

} // namespace pelrath
