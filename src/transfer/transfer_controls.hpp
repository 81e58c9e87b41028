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
    bool folderDialogShown = false; ///< a folder dialog was opened: its close sets nothing up again
};

/// The controls of the window TextureExtractionInsertion, in their design state after construction. Their
/// places are given by TransferLayout.
struct TransferControls {
    TransferControls();
    /// Puts in the captions that stand for what the texture and the mode decide.
    void setPlaceholders();

    Window window;

    Label Label1; // "Texture Name : "
    TextBox Text1;

    Frame FileFormat;
    OptionGroup<2> optOutFileType;

    Frame Mipmaps;
    PictureBox Picture1; // holds the mipmap options
    OptionGroup<4> optMipmaps;
    Label lblFilter;
    DropDownList lstScaleFilter;

    Frame OptionsFrame; // the resolutions
    CheckListBox List1;
    CommandButton cmdSelAllResolution;
    CommandButton cmdSelNoneResolution;

    // Of an extraction.
    Frame extractOptionsFrame;
    CheckBox chkLaunchEditor;
    CheckBox chkOverwriteExistingFiles;

    // Of an insertion.
    Frame destinationFrame;
    std::array<CheckBox, 2> chkDestination;
    CheckBox chkSaveCdds;
    TextBox txtCDDSBackupFolder;
    CommandButton cmdGetCDDSBackupFolder; // "..." beside it
    TextBox txtbazarTempFolder;
    CommandButton cmdGetBazarTempFolder; // "..." beside it
    Label lblWarningTgaInsert;

    CommandButton cmdExtractInsert;
    CommandButton cmdQuit;
    TextBox ExtractSummary;
};

} // namespace pelrath
