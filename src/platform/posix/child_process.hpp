#pragma once

#include "platform/posix/file_handle.hpp"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <sys/types.h>

namespace pelrath {

/// A process that reads what it is given on its input and answers on its output, in texts that end with a
/// zero byte each. Errors go where those of this process go.
class ChildProcess {
public:
    /// Starts the program. RuntimeError where it cannot be started.
    ChildProcess(const std::string& executable, const std::vector<std::string>& arguments);
    /// Ends its input, by which it is to end itself, and waits for that.
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    /// False where it does not read any more.
    [[nodiscard]] bool write(std::string_view bytes) const;
    /// The next text, waited for; nothing where it has ended.
    [[nodiscard]] std::optional<std::string> readText();

private:
    pid_t process_ = -1;
    FileHandle ours_;  ///< end of what is between the two
    std::string read_; ///< beyond the texts that were asked for
};

} // namespace pelrath
