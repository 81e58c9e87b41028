#pragma once

#include "controls/modal_windows.hpp"
#include "imaging/image_library_facade.hpp"
#include "imaging/library_functions.hpp"
#include "platform/busy_sign.hpp"
#include "platform/file_associations.hpp"
#include "platform/message_boxes.hpp"
#include "session/session.hpp"
#include "transfer/bazar_temp_copy.hpp"
#include "transfer/dds_insertion.hpp"
#include "transfer/destinations.hpp"
#include "transfer/editor_launch.hpp"
#include "transfer/extracted_file.hpp"
#include "transfer/file_kind_rules.hpp"
#include "transfer/image_insertion.hpp"
#include "transfer/image_library_use.hpp"
#include "transfer/insertion_choice.hpp"
#include "transfer/insertion_recovery.hpp"
#include "transfer/read_only_archive.hpp"
#include "transfer/remembering.hpp"
#include "transfer/resolution_list.hpp"
#include "transfer/safe_copy.hpp"
#include "transfer/set_up.hpp"
#include "transfer/texture_extraction.hpp"
#include "transfer/transfer_choices.hpp"
#include "transfer/transfer_controls.hpp"
#include "transfer/transfer_layout.hpp"

#include <optional>

namespace pelrath {

/// An insertion that has ended.
struct Insertion {
    TransferChoices choices;
    std::size_t levels = 0; ///< that the archive got
    bool safeCopyMade = false;
    std::string summary;
};

/// What the dialog needs of the system.
struct TransferServices {
    MessageBoxes& boxes;
    ModalWindows& windows;
    FileAssociations& associations;
    ChooseFolder chooseBazarTempFolder;
    ChooseFolder chooseSafeCopyFolder;
    InsertionRecovery& recovery;
    BusySign* busy = nullptr; ///< none: long work is not shown
    LibraryFunctions library = imageLibrary();
};

/// The dialog through which one texture of the open archive is extracted to image files or put back from
/// them, as the session's mode says: its controls, and one object for each concern.
class TextureExtractionInsertion : public TransferControls {
public:
    TextureExtractionInsertion(Session& session, const TransferServices& services);

    /// Opens it over `owner` for the chosen texture and returns when it has been closed. The session's
    /// texture must be one of its archive. Does nothing while it is open already. With `choices` it begins
    /// with those instead of the given or the remembered ones.
    void show(const Window& owner, std::optional<TransferChoices> choices = std::nullopt);
    /// Inserts the chosen texture without being shown, as a press on its button does with these choices. What
    /// fails is told as it is then.
    Insertion insertUnseen(const TransferChoices& choices);
    /// Lets the user choose a safe-copy folder, in the dialog for that, over `owner`.
    void askForSafeCopyFolder(const Window& owner);

    ExtractionNotices extracted;
    Signal<> insertionBegins;          ///< no file has been looked at yet
    Signal<const Insertion&> inserted; ///< by the dialog or unseen

    /// What an insertion would take as the controls are.
    [[nodiscard]] InsertionChoice choice() const { return choiceOf(*this, state_); }
    /// Shows another window over the dialog, whose choices stay as they are.
    void showOver(Window& other);

private:
    void Form_Activate();
    void setUp();
    void Form_QueryUnload();
    void cmdExtractInsert_Click();
    Insertion insert();
    void extract();
    /// False for a texture whose type nothing here can handle, which has then been told.
    bool typeIsKnown();

    Session& session_;
    MessageBoxes& boxes_;
    ModalWindows& windows_;
    BusySign* busy_;
    ChooseFolder chooseSafeCopyFolder_;
    TransferState state_;
    SaveImageOptions saveOptions_;
    ImageLibraryFacade facade_;
    LibraryImages images_;
    ImageLibraryUse libraryUse_;
    ResolutionList resolutions_;
    FileKindRules fileKinds_;
    Destinations destinations_;
    SetUp setUp_;
    Remembering remembering_;
    std::optional<TransferChoices> wanted_; ///< to begin with
    TransferLayout layout_;
    EditorLaunch editor_;
    TextureExtraction extraction_;
    SafeCopy safeCopy_;
    ReadOnlyArchive readOnly_;
    InsertionRecovery& recovery_;
    ImageInsertion imageInsertion_;
    BazarTempCopy bazarTempCopy_;
    DdsInsertion ddsInsertion_;
    Connections connections_;
};

} // namespace pelrath
