#pragma once

#include <string>
#include <vector>

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

    /// Has the file manager show the folder of these files, with the files marked where it can do that. Fails
    /// where there is none that starts.
    static void showInFolder(const std::vector<std::string>& files);
};

} // namespace pelrath
