#pragma once

#include "controls/control.hpp"
#include "controls/modal_windows.hpp"
#include "controls/text_box.hpp"
#include "controls/window.hpp"
#include "dialogs/folder_selection.hpp"
#include "platform/message_boxes.hpp"

#include <string>

namespace pelrath {

/// A small dialog that sets one of the program's working folders. frmGetBazarTempFolder and
/// frmGetCDDSBackupFolder are objects of it, with texts of their own.
class FolderChoice {
public:
    struct Texts {
        const char* label;
        const char* instruction; ///< of the folder browser
    };
    static constexpr Texts bazarTempTexts{"Bazar Temp Folder : ", "Select Bazar Temp folder"};
    static constexpr Texts cddsBackupTexts{"CDDS Safe Copy Folder : ", "Select CDDS Safe Copy folder"};

    struct Services {
        FolderSelection& folders;
        MessageBoxes& boxes;
        ModalWindows& windows;
    };

    /// `folder` is the value it sets; `over` the window on which it is centred.
    FolderChoice(const Texts& texts, std::string& folder, const Window& over, const Services& services);

    /// Loads the dialog anew and returns when it has been closed. `folder` is then as a browse or OK left it;
    /// whether it exists is the caller's to look at. Does nothing while it is open already.
    void show();

    Window window;
    Label Label1;                            // what the folder is for
    TextBox selectedFolder;                  // its path, to be typed or browsed for
    CommandButton cmdGetExtractInsertFolder; // browses
    CommandButton cmdOK;                     // takes it
    CommandButton cmdCancel;                 // leaves what a browse has taken

private:
    void Form_Load();
    void cmdGetExtractInsertFolder_Click();
    void cmdOK_Click();

    const Texts& texts_;
    std::string& folder_;
    const Window& over_;
    Services services_;
    Connections connections_;
};

} // namespace pelrath
