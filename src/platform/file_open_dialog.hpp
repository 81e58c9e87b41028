#pragma once

#include <optional>
#include <string>

namespace pelrath {

/// The system's file-open dialog for one existing file.
class FileOpenDialog {
public:
    struct Request {
        std::string title;
        std::string filter; ///< the only one: its name, with the wildcard in brackets at its end
        std::string folder; ///< where it starts; empty: the current folder
    };

    virtual ~FileOpenDialog() = default;

    /// The chosen file's full path; nothing when the user cancels.
    virtual std::optional<std::string> choose(const Request& request) = 0;
};

} // namespace pelrath
