#pragma once

#include "controls/control.hpp"
#include "controls/text_box.hpp"
#include "dialogs/folder_selection.hpp"
#include "session/session.hpp"

namespace pelrath {

/// Lets the user browse for the Export/Import folder.
class ExportImportFolder {
public:
    struct Controls {
        CommandButton& cmdGetExtractInsertFolder;
        TextBox& Text8;
    };

    ExportImportFolder(const Controls& controls, Session& session, FolderSelection& folders);

private:
    void cmdGetExtractInsertFolder_Click();

    Controls c_;
    Session& session_;
    FolderSelection& folders_;
    Connection connection_;
};

} // namespace pelrath
