#include "transfer/transfer_controls.hpp"

namespace pelrath {

TransferControls::TransferControls() {
    setPlaceholders();
    Label1.setCaption("Texture Name : ");
    Text1.setAccessibleName("Texture name");
    optOutFileType[DdsFileType].setCaption("DDS");

    optMipmaps[Single].setCaption("Single");
    optMipmaps[Embedded].setCaption("Embedded");
    optMipmaps[External].setCaption("External");
    optMipmaps[Create].setCaption("Create");
    lblFilter.setCaption("Filter :");
    lstScaleFilter.setAccessibleName("Filter");

    OptionsFrame.setCaption("Resolution Selection (mipmaps)");
    List1.setAccessibleName("Resolutions");
    cmdSelAllResolution.setCaption("All");
    cmdSelNoneResolution.setCaption("None");

    extractOptionsFrame.setCaption("Extraction Options");
    chkLaunchEditor.setCaption("Send texture to default image editor ");
    chkOverwriteExistingFiles.setCaption("Overwrite Existing Files");

    destinationFrame.setCaption("Insertion Destinations");
    chkDestination[ToArchive].setCaption("Insert Texture in CDDS file");
    chkSaveCdds.setCaption("Save CDDS file before insertion");
    txtCDDSBackupFolder.setAccessibleName("CDDS safe copy folder");
    cmdGetCDDSBackupFolder.setAccessibleName("Choose the CDDS safe copy folder");
    chkDestination[ToBazarTemp].setCaption("Copy in Bazar Temptextures Directory");
    txtbazarTempFolder.setAccessibleName("Bazar Temp folder");
    cmdGetBazarTempFolder.setAccessibleName("Choose the Bazar Temp folder");
    for (CommandButton* browse : {&cmdGetCDDSBackupFolder, &cmdGetBazarTempFolder}) {
        browse->setCaption("...");
    }
    lblWarningTgaInsert.setCaption(
        "WARNING: Inserting TGA in CDDS can render the mipmap(s) unmodifiable with "
        "the nVidia plugin.Make a Safe Copy of the CDDS file.");
    lblWarningTgaInsert.setVisible(false);

    cmdQuit.setCaption("Quit");
    chkRemember.setCaption("Remember");
    cmdCheck.setCaption("Check...");
    cmdCheck.setVisible(false);
    ExtractSummary.setAccessibleName("Summary");
    for (TextBox* shown : {&Text1, &txtCDDSBackupFolder, &txtbazarTempFolder, &ExtractSummary}) {
        shown->setLocked(true);
    }
}

void TransferControls::setPlaceholders() {
    FileFormat.setCaption("<file format>");
    optOutFileType[NativeFileType].setCaption("<bmp/tga>");
    Mipmaps.setCaption("<mipmaps operation>");
    cmdExtractInsert.setCaption("<mode>");
}

} // namespace pelrath
