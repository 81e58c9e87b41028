#pragma once

#include "controls/window.hpp"
#include "dialogs/browse_for_folder.hpp"

#include <memory>
#include <string>

namespace pelrath {

/// The one way in which the program's windows let the user choose a folder.
class FolderSelection {
public:
    /// `owner` is the window over which the browser opens.
    FolderSelection(FolderPicker& picker, const Window& owner) : picker_(picker), owner_(owner) {}

    /// The chosen folder's path, empty when the user chose none. `title` is the instruction over the tree,
    /// `initdir` the folder selected at first: none where it is empty, or has no full path, as when it is
    /// too long.
    [[nodiscard]] std::string SelectFolder(const std::string& title, const std::string& initdir);

private:
    FolderPicker& picker_;
    const Window& owner_;
    std::shared_ptr<cBrowseForFolder> browser_; // of the last call; its events have no handlers
};

} // namespace pelrath
