#include "mainwindow/export_import_folder.hpp"

namespace pelrath {

ExportImportFolder::ExportImportFolder(const Controls& controls, Session& session, FolderSelection& folders)
    : c_(controls), session_(session), folders_(folders),
      connection_(c_.cmdGetExtractInsertFolder.click.connect([this] { cmdGetExtractInsertFolder_Click(); })) {
}

void ExportImportFolder::cmdGetExtractInsertFolder_Click() {
    const std::string folder =
        folders_.SelectFolder("Select Texture Set Root Path", session_.exportImportFolder);
    if (folder.empty()) return;
    session_.exportImportFolder = folder;
    c_.Text8.setText(folder);
}

} // namespace pelrath
