#include "transfer/set_up.hpp"

#include "archive/image_file_kind.hpp"

namespace pelrath {

SetUp::SetUp(TransferControls& controls, TransferState& state, const Session& session,
             ResolutionList& resolutions)
    : c_(controls), state_(state), session_(session), resolutions_(resolutions) {}

void SetUp::clearChoices() {
    state_ = {};
    c_.setPlaceholders();
    c_.List1.clear();
    for (OptionButton& kind : c_.optOutFileType) {
        kind.deselect();
    }
    for (OptionButton& operation : c_.optMipmaps) {
        operation.deselect();
    }
    // Disabled, a destination's reset asks for no folder.
    for (CheckBox& destination : c_.chkDestination) {
        destination.setEnabled(false);
        destination.setChecked(false);
        destination.setEnabled(true);
    }
    c_.chkSaveCdds.setChecked(false);
    c_.chkLaunchEditor.setChecked(false);
    c_.ExtractSummary.setText("");
}

void SetUp::run() {
    fillFilters();
    resolutions_.fill();
    if (session_.mode == DialogMode::Extraction) {
        forExtraction();
    } else {
        forInsertion();
    }
    forTexture();
}

void SetUp::fillFilters() {
    c_.lstScaleFilter.setLines({"Nearest Filter", "Linear filter", "Bilinear filter", "Box filter",
                                "Triangle filter", "Bell filter", "B Spline filter", "Lanczos filter",
                                "Mitchell filter"});
    c_.lstScaleFilter.select(bilinearFilter);
}

void SetUp::forExtraction() {
    c_.window.setCaption("Texture Extraction");
    showParts(false);
    c_.chkOverwriteExistingFiles.setChecked(false);
    c_.cmdExtractInsert.setCaption("Extract");
    c_.Mipmaps.setCaption("Mipmap extraction");
    c_.FileFormat.setCaption("Output file format");
    c_.optOutFileType[DdsFileType].select();
}

void SetUp::forInsertion() {
    c_.window.setCaption("Texture Insertion");
    showParts(true);
    c_.chkDestination[ToArchive].setChecked(true);
    c_.chkDestination[ToBazarTemp].setChecked(false);
    c_.txtbazarTempFolder.setText(session_.settings.bazarTempFolder);
    c_.chkSaveCdds.setChecked(true);
    c_.txtCDDSBackupFolder.setText(session_.settings.cddsBackupFolder);
    c_.cmdExtractInsert.setCaption("Insert");
    c_.Mipmaps.setCaption("Mipmap insertion");
    c_.FileFormat.setCaption("Input file format");
    c_.optOutFileType[DdsFileType].select();
}

void SetUp::showParts(bool insertion) {
    c_.destinationFrame.setVisible(insertion);
    c_.extractOptionsFrame.setVisible(!insertion);
    c_.chkLaunchEditor.setVisible(!insertion);
    c_.optMipmaps[Create].setVisible(insertion);
    c_.lblFilter.setVisible(insertion);
    c_.lstScaleFilter.setVisible(insertion);
    c_.cmdCheck.setVisible(insertion);
}

void SetUp::forTexture() {
    c_.Text1.setText(session_.chosenTexture().name);
    const auto native = nativeImageKind(session_.chosenTexture());
    c_.optOutFileType[NativeFileType].setCaption(native ? std::string{native->extension} : "");
    resolutions_.selectFirst();
}

} // namespace pelrath
