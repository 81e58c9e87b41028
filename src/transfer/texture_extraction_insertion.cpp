#include "transfer/texture_extraction_insertion.hpp"

#include "platform/text.hpp"
#include "transfer/failure_report.hpp"

namespace pelrath {

TextureExtractionInsertion::TextureExtractionInsertion(Session& session, const TransferServices& services)
    : session_(session), boxes_(services.boxes), windows_(services.windows), busy_(services.busy),
      chooseSafeCopyFolder_(services.chooseSafeCopyFolder), facade_(boxes_, saveOptions_, services.library),
      images_(services.library), libraryUse_(facade_, images_),
      resolutions_({List1, cmdSelAllResolution, cmdSelNoneResolution}, session, state_),
      fileKinds_({optOutFileType, optMipmaps, lblFilter, lstScaleFilter, chkDestination[ToBazarTemp],
                  txtbazarTempFolder, lblWarningTgaInsert},
                 session, state_, resolutions_),
      destinations_({chkDestination, chkSaveCdds, txtCDDSBackupFolder, cmdGetCDDSBackupFolder,
                     txtbazarTempFolder, cmdGetBazarTempFolder},
                    session, state_, services.chooseBazarTempFolder, services.chooseSafeCopyFolder),
      setUp_(*this, state_, session, resolutions_), remembering_(*this, session, state_), layout_(*this),
      editor_(ExtractSummary, services.associations),
      extraction_({List1, chkOverwriteExistingFiles, chkLaunchEditor, ExtractSummary}, boxes_, session,
                  state_, {facade_, images_, saveOptions_, libraryUse_}, editor_, extracted),
      safeCopy_({chkSaveCdds, txtCDDSBackupFolder}, boxes_, session, state_, services.chooseSafeCopyFolder,
                services.busy),
      readOnly_(boxes_), recovery_(services.recovery),
      imageInsertion_({List1, lstScaleFilter}, boxes_, session, state_,
                      {facade_, images_, saveOptions_, libraryUse_}),
      bazarTempCopy_(boxes_, session, {facade_, images_, saveOptions_, libraryUse_}),
      ddsInsertion_({List1, chkDestination}, session, state_, imageInsertion_, bazarTempCopy_) {
    connections_.push_back(window.activated.connect([this] { Form_Activate(); }));
    connections_.push_back(window.queryUnload.connect([this] { Form_QueryUnload(); }));
    connections_.push_back(cmdExtractInsert.click.connect([this] { cmdExtractInsert_Click(); }));
    connections_.push_back(cmdQuit.click.connect([this] { window.unload(); }));
}

void TextureExtractionInsertion::show(const Window& owner, std::optional<TransferChoices> choices) {
    if (window.isLoaded()) return;
    wanted_ = std::move(choices);
    window.load();
    setUp_.clearChoices();
    layout_.centreOn(owner);
    windows_.showModal(window);
}

void TextureExtractionInsertion::showOver(Window& other) {
    state_.folderDialogShown = true;
    windows_.showModal(other);
}

void TextureExtractionInsertion::Form_Activate() {
    if (state_.folderDialogShown) return;
    setUp();
}

void TextureExtractionInsertion::setUp() {
    attempt(boxes_, {"ilInit Error Number: ", "Form Activation Error : "}, [this] {
        (void)libraryUse_.start();
        setUp_.run();
        remembering_.begin(wanted_);
    });
}

Insertion TextureExtractionInsertion::insertUnseen(const TransferChoices& choices) {
    session_.mode = DialogMode::Insertion;
    wanted_ = choices;
    setUp_.clearChoices();
    setUp();
    Insertion done;
    const Connection heard = inserted.connect([&done](const Insertion& insertion) { done = insertion; });
    cmdExtractInsert_Click();
    Form_QueryUnload();
    return done;
}

void TextureExtractionInsertion::askForSafeCopyFolder(const Window& owner) {
    layout_.centreOn(owner); // which the other dialog is placed by
    chooseSafeCopyFolder_();
}

void TextureExtractionInsertion::Form_QueryUnload() {
    attempt(boxes_, {"ilShutDown Error Number: ", "ImageSave Error : "}, [this] { libraryUse_.shutDown(); });
}

void TextureExtractionInsertion::cmdExtractInsert_Click() {
    state_.safeCopyDone = false;
    if (!typeIsKnown()) return;
    const bool insertion = session_.mode == DialogMode::Insertion;
    facade_.longWork().showBy(busy_, (insertion ? "Inserting " : "Extracting ") + session_.selectedBaseName);
    std::optional<Insertion> done;
    if (insertion) {
        done = insert();
    } else {
        extract();
    }
    facade_.longWork().showBy(nullptr);
    if (window.isLoaded()) remembering_.used();
    if (done) inserted.emit(*done);
}

Insertion TextureExtractionInsertion::insert() {
    const TransferChoices choices = choicesOf(*this, state_);
    recovery_.look();
    insertionBegins.emit();
    InsertionRun run{{boxes_, safeCopy_, readOnly_, ExtractSummary, facade_.longWork()}, session_};
    if (state_.imageFileKind == ImageFileKind::Dds) {
        ddsInsertion_.insertFromDdsFiles(run);
    } else {
        imageInsertion_.performSimpleImageInsertion(state_.imageFileKind, run);
    }
    run.end();
    return {choices, run.archive().levelsWritten(), state_.safeCopyDone, run.summary()};
}

void TextureExtractionInsertion::extract() {
    if (state_.imageFileKind == ImageFileKind::Dds) {
        extraction_.extractToDdsFiles();
    } else {
        extraction_.extractToImages(state_.imageFileKind);
    }
}

bool TextureExtractionInsertion::typeIsKnown() {
    if (nativeImageKind(session_.chosenTexture())) return true;
    boxes_.exclamation(
        "Textures of the type \"" + visibleText(session_.chosenTexture().fourCC) +
            "\" can be neither extracted nor inserted.\r\n\r\nPlease choose a DXT1 or DXT5 texture.",
        "Pelrath - Texture type not supported");
    return false;
}

} // namespace pelrath
