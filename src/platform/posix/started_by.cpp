#include "platform/posix/started_by.hpp"

#include <algorithm>
#include <array>
#include <cstdlib>

#include <unistd.h>

namespace pelrath {

bool isStartedByDesktop() {
    constexpr std::array marks{"DESKTOP_STARTUP_ID", "XDG_ACTIVATION_TOKEN", "GIO_LAUNCHED_DESKTOP_FILE"};
    return ::isatty(STDERR_FILENO) == 0 && std::any_of(marks.begin(), marks.end(), [](const char* mark) {
               return std::getenv(mark) != nullptr;
           });
}

} // namespace pelrath
