#pragma once

#include "controls/signal.hpp"
#include "platform/folder_picker.hpp"

#include <cstdint>
#include <string>

namespace pelrath {

/// The system's folder picker as an object: a few properties, one call, and events while it is shown. Errors
/// are RuntimeErrors of the source "<executable's name>.cBrowseForFolder".
class cBrowseForFolder : private FolderPicker::Listener {
public:
    static constexpr std::int32_t NotShown = 26002;
    /// The number of a path's failed expansion is this plus the system's own code. 0x80047148
    static constexpr std::int32_t PlatformError = -2147192504;

    explicit cBrowseForFolder(FolderPicker& picker) : picker_(picker) {}

    WindowHandle hwndOwner = 0;
    std::string title = "Choose Folder";
    std::string InitialDir; ///< selected when the dialog opens; empty: none. A call makes it a full path
    std::string RootDir;    ///< the tree's root; empty: the desktop. A call makes it a full path
    bool EditBox = false;
    bool StatusText = false;
    bool FileSystemOnly = false;
    bool ValidateEditBox = false;
    bool UseNewUI = false;

    Signal<> Initialized; ///< the dialog is there, and the initial folder selected
    /// Path of the new selection, empty where it has none; clearing `bAllowOk` disables OK.
    Signal<const std::string& /*sPath*/, bool& /*bAllowOk*/> SelectionChanged;
    /// The typed path that leads nowhere; the dialog closes without a result unless `bKeepOpen` is set.
    Signal<const std::string& /*sPath*/, bool& /*bKeepOpen*/> ValidationFailed;

    /// The chosen folder's path; empty when the user cancels, the choice has none, or a failed validation
    /// closes the dialog. Raises PlatformError, and shows nothing, where InitialDir or RootDir has no full
    /// path.
    std::string BrowseForFolder();

    /// Moves the selection and gives the dialog the focus. Raises NotShown, or PlatformError for a path
    /// without a full one.
    void SetFolder(const std::string& sPath);
    /// Raises NotShown.
    void SetStatus(const std::string& sText);

    /// Name of the item chosen last, at most 260 characters; empty before, and after a cancel.
    [[nodiscard]] const std::string& DisplayName() const { return displayName_; }
    /// Path of a special folder by its shell number; empty where there is none.
    [[nodiscard]] std::string SpecialFolderLocation(std::int32_t eFolder) const;

private:
    void initialized(FolderPicker::Dialog& dialog) override;
    void selectionChanged(FolderPicker::Dialog& dialog, const std::string& path) override;
    bool validationFailed(FolderPicker::Dialog& dialog, const std::string& typed) override;

    [[nodiscard]] std::uint32_t flags() const;
    void requireShown() const;

    FolderPicker& picker_;
    bool shown_ = false;
    FolderPicker::Dialog* dialog_ = nullptr; // while it is shown, and from its initialisation on
    std::string displayName_;
};

} // namespace pelrath
