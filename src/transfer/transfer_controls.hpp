#pragma once

#include "archive/image_file_kind.hpp"
#include "controls/check_box.hpp"
#include "controls/check_list_box.hpp"
#include "controls/control.hpp"
#include "controls/drop_down_list.hpp"
#include "controls/option_group.hpp"
#include "controls/text_box.hpp"
#include "controls/window.hpp"

#include <array>
#include <cstddef>

namespace pelrath {

/// What is done with a texture's levels; the buttons of `optMipmaps` by index.
enum MipmapOperation : std::size_t { Single = 0, Embedded = 1, External = 2, Create = 3 };

/// The buttons of `optOutFileType`: the texture's own kind of image, or DDS.
enum FileTypeOption : std::size_t { NativeFileType = 0, DdsFileType = 1 };

/// The check boxes of `chkDestination`.
enum Destination : std::size_t { ToArchive = 0, ToBazarTemp = 1 };

/// The filter of `lstScaleFilter` that the library builds a whole chain with by itself; also the default.
inline constexpr int bilinearFilter = 2;

/// What the controls mean, where they do not hold it themselves.
struct TransferState {
    MipmapOperation mipmapOperation = Single;
    ImageFileKind imageFileKind = ImageFileKind::Bmp;
    bool safeCopyDone = false;      ///< during the current operation
    bool folderDialogShown = false; ///< a dialog was opened over it: its close sets nothing up again
};

/// The controls of the window TextureExtractionInsertion, in their design state after construction. Their
/// places are given by TransferLayout.
struct TransferControls {
    TransferControls();
    /// Puts in the captions that stand for what the texture and the mode decide.
    void setPlaceholders();

    Window window;

    Label Label1;  // "Texture Name : "
    TextBox Text1; // the texture's name

    Frame FileFormat;              // holds the choice of the file kind
    OptionGroup<2> optOutFileType; // by FileTypeOption

    Frame Mipmaps;               // holds the choice of the operation
    PictureBox Picture1;         // holds the mipmap options
    OptionGroup<4> optMipmaps;   // by MipmapOperation
    Label lblFilter;             // "Filter :"
    DropDownList lstScaleFilter; // the filters with which levels are made

    Frame OptionsFrame;                 // holds the resolutions
    CheckListBox List1;                 // the levels, and which are marked
    CommandButton cmdSelAllResolution;  // marks all
    CommandButton cmdSelNoneResolution; // marks none

    // Of an extraction.
    Frame extractOptionsFrame;          // holds the next two
    CheckBox chkLaunchEditor;           // the file is handed to the editor
    CheckBox chkOverwriteExistingFiles; // whatever stands there is replaced

    // Of an insertion.
    Frame destinationFrame;                 // holds the rest of them
    std::array<CheckBox, 2> chkDestination; // by Destination
    CheckBox chkSaveCdds;                   // a safe copy is made before
    TextBox txtCDDSBackupFolder;            // where that goes
    CommandButton cmdGetCDDSBackupFolder;   // "..." beside it
    TextBox txtbazarTempFolder;             // where loose files go
    CommandButton cmdGetBazarTempFolder;    // "..." beside it
    Label lblWarningTgaInsert;              // of what an inserted TGA may do

    CommandButton cmdExtractInsert; // the action
    CommandButton cmdQuit;          // closes the dialog
    CommandButton cmdCheck;         // of an insertion: looks at what it would do
    TextBox ExtractSummary;         // what was done
    CheckBox chkRemember;           // the choices are kept for the next time
};

} // namespace pelrath
