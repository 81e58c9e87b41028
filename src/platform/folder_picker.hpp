#pragma once

#include <cstdint>
#include <string>

namespace pelrath {

/// Number of a window of the program as the system knows it; 0: none.
using WindowHandle = std::uint32_t;

/// What a folder picker offers: the bits of a request's flag word, as the shell numbers them.
namespace folder_picker_flag {
inline constexpr std::uint32_t fileSystemFolders = 0x1; ///< OK only for folders that have a path
inline constexpr std::uint32_t statusText = 0x4;
inline constexpr std::uint32_t fileSystemAncestors = 0x8;
inline constexpr std::uint32_t editBox = 0x10;
inline constexpr std::uint32_t validate = 0x20;       ///< a typed path that leads to no folder is reported
inline constexpr std::uint32_t newDialogStyle = 0x40; ///< resizable, and makes new folders
} // namespace folder_picker_flag

/// The system's modal dialog in which the user picks a folder from a tree or types its path. All paths are
/// full and of at most longestFolderPath characters; a folder whose own would be longer counts as one without
/// a path.
class FolderPicker {
public:
    /// The dialog while it is shown.
    class Dialog {
    public:
        virtual ~Dialog() = default;
        virtual void setStatusText(const std::string& text) = 0;
        /// The next choice of a folder, or editing of the path, enables OK again.
        virtual void enableOk(bool enabled) = 0;
        /// A path that leads to no folder changes nothing. It may take a while to find that out.
        virtual void setSelection(const std::string& path) = 0;
        virtual void setFocus() = 0;
    };

    /// What the dialog reports, from inside choose().
    class Listener {
    public:
        virtual ~Listener() = default;
        /// Once, before anything can be chosen.
        virtual void initialized(Dialog& dialog) = 0;
        /// `path` is empty for an item without one. OK is enabled as the item and the flags have it.
        virtual void selectionChanged(Dialog& dialog, const std::string& path) = 0;
        /// The user confirmed a path that leads to no folder. True: the dialog stays open.
        virtual bool validationFailed(Dialog& dialog, const std::string& typed) = 0;
    };

    struct Request {
        WindowHandle owner = 0;
        std::string title;         ///< the instruction above the tree
        std::uint32_t flags = 0;   ///< of folder_picker_flag
        std::string rootFolder;    ///< on top of the tree; empty, or none there: all that the user can reach
        std::string initialFolder; ///< what the first selection is likely to be; empty: none
    };

    struct Choice {
        std::string displayName; ///< the item's name in the tree
        std::string path;        ///< empty for an item without one
    };

    virtual ~FolderPicker() = default;

    /// Returns when the dialog has been closed; an empty choice when the user cancelled, or a failed
    /// validation closed it.
    virtual Choice choose(const Request& request, Listener& listener) = 0;
};

} // namespace pelrath
