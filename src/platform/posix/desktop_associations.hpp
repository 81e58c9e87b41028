#pragma once

#include <string>

namespace pelrath {

/// The associations of the user's desktop, from its own database of file types. Usable on any thread.
class DesktopAssociations {
public:
    /// As FileAssociations has it.
    [[nodiscard]] static std::string executableFor(const std::string& file);

    /// Starts the program for `file` with its path as the one argument, and returns when it has ended or,
    /// where it is started by message, taken the message. Fails where it cannot be started, with a
    /// description that says what to do.
    static void open(const std::string& file);
};

} // namespace pelrath
