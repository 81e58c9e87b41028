#include "mainwindow/hand_off.hpp"

#include "platform/files.hpp"

namespace pelrath {

HandOff::HandOff(const Controls& controls, MessageBoxes& boxes, Session& session,
                 TextureExtractionInsertion& dialog)
    : c_(controls), boxes_(boxes), session_(session), dialog_(dialog) {
    connections_.push_back(c_.cmdExtract.click.connect([this] { start(DialogMode::Extraction); }));
    connections_.push_back(c_.cmdInsert.click.connect([this] { start(DialogMode::Insertion); }));
}

void HandOff::start(DialogMode mode) {
    session_.mode = mode;
    checkAndOpenDialog();
}

void HandOff::checkAndOpenDialog() {
    const std::string folder = c_.Text8.text();
    if (folder.empty()) {
        boxes_.exclamation("Texture Path not selected. Please select a valid folder",
                           "Pelrath - Folder not selected");
        return;
    }
    if (!folderExists(folder)) {
        boxes_.exclamation("Texture Path not found. Please select a valid folder",
                           "Pelrath - Folder not found");
        return;
    }
    session_.exportImportFolder = folder;
    // A name may be left from a texture that is no longer chosen.
    if (session_.selectedBaseName.empty() || session_.selectedTexture < 0) {
        boxes_.exclamation("No Texture File Name selected. Please select one and try again.",
                           "Pelrath - Texture not selected");
        return;
    }
    dialog_.show(c_.window);
}

} // namespace pelrath
