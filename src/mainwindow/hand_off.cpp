#include "mainwindow/hand_off.hpp"

#include "platform/posix/files.hpp"
#include "platform/posix/full_path.hpp"
#include "platform/text.hpp"

namespace pelrath {

HandOff::HandOff(const Controls& controls, MessageBoxes& boxes, Session& session, TextureLook& look,
                 TextureExtractionInsertion& dialog)
    : c_(controls), boxes_(boxes), session_(session), look_(look), dialog_(dialog) {
    connections_.push_back(c_.cmdExtract.click.connect([this] { start(DialogMode::Extraction); }));
    connections_.push_back(c_.cmdInsert.click.connect([this] { start(DialogMode::Insertion); }));
}

void HandOff::start(DialogMode mode) {
    session_.mode = mode;
    checkAndOpenDialog();
}

void HandOff::checkAndOpenDialog() {
    if (c_.Text8.text().empty()) {
        boxes_.exclamation("Texture Path not selected. Please select a valid folder",
                           "Pelrath - Folder not selected");
        return;
    }
    // Stored as it was typed, it would be another folder when the program is started elsewhere.
    const std::string folder = pathFromRoot(c_.Text8.text());
    if (!folderExists(folder)) {
        boxes_.exclamation("Texture Path not found. Please select a valid folder",
                           "Pelrath - Folder not found");
        return;
    }
    session_.exportImportFolder = folder;
    c_.Text8.setText(folder);
    if (!textureIsChosen()) return;
    if (session_.mode == DialogMode::Insertion) look_.keepBefore();
    dialog_.show(c_.window);
}

bool HandOff::textureIsChosen() {
    const auto textures = static_cast<std::ptrdiff_t>(session_.archive.textures.size());
    const bool chosen = session_.selectedTexture >= 0 && session_.selectedTexture < textures;
    if (chosen && !session_.selectedBaseName.empty()) return true;
    if (chosen) {
        boxes_.exclamation("The texture \"" + visibleText(session_.chosenTexture().name) +
                               "\" has no name in front of its extension, so that no image file can be named "
                               "after it.\r\n\r\nPlease select another texture and try again.",
                           "Pelrath - Texture without a name");
    } else {
        boxes_.exclamation("No Texture File Name selected. Please select one and try again.",
                           "Pelrath - Texture not selected");
    }
    return false;
}

} // namespace pelrath
