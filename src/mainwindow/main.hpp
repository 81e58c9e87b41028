#pragma once

#include "dialogs/disclaimer.hpp"
#include "dialogs/folder_choice.hpp"
#include "dialogs/folder_selection.hpp"
#include "editing/save_bar.hpp"
#include "editing/watch_list.hpp"
#include "mainwindow/archive_reading.hpp"
#include "mainwindow/edit_loop.hpp"
#include "mainwindow/export_import_folder.hpp"
#include "mainwindow/hand_off.hpp"
#include "mainwindow/incremental_search.hpp"
#include "mainwindow/life_cycle.hpp"
#include "mainwindow/listing_panes.hpp"
#include "mainwindow/main_controls.hpp"
#include "mainwindow/pane_copies.hpp"
#include "mainwindow/save_bar_layout.hpp"
#include "mainwindow/splash.hpp"
#include "mainwindow/texture_choice.hpp"
#include "mainwindow/texture_look.hpp"
#include "mainwindow/viewer/texture_viewer.hpp"
#include "mainwindow/viewport_controls.hpp"
#include "mainwindow/window_layout.hpp"
#include "platform/background_work.hpp"
#include "platform/busy_sign.hpp"
#include "platform/file_associations.hpp"
#include "platform/file_watch.hpp"
#include "platform/screen.hpp"
#include "transfer/insertion_recovery.hpp"
#include "transfer/texture_extraction_insertion.hpp"

namespace pelrath {

/// What the main window needs of the system.
struct MainServices {
    MessageBoxes& boxes;
    FileOpenDialog& fileOpen;
    EventPump& pump;
    const Screen& screen;
    ViewportSurface& surface;
    ModalWindows& windows;
    FileAssociations& associations;
    BusySign& busy;
    FolderPicker& folderPicker;
    FileWatch& fileWatch;
    BackgroundWork& background;
};

/// The main window: its controls, and one object for each concern. Holds no logic of its own. The window
/// system calls load(), then activate() when the window is first shown and after each of the program's own
/// dialogs, then queryUnload(); sizes and the user's doings arrive through the controls.
class Main : public MainControls {
public:
    Main(Session& session, const MainServices& services);

    void load() { lifeCycle_.Form_Load(); }
    void activate() { lifeCycle_.Form_Activate(); }
    void queryUnload() { lifeCycle_.Form_QueryUnload(); }
    /// The layout pass as it runs before the window is first shown.
    void layOut() { layout_.Form_Resize(); }

    /// What choosing that archive does, a path from the root.
    void openArchive(const std::string& path) { reading_.open(path); }

    [[nodiscard]] TextureLook& look() { return look_; }
    [[nodiscard]] const PaneCopies& copies() const { return copies_; }

    InsertionRecovery recovery;
    Disclaimer disclaimer;
    FolderSelection folders;
    TextureExtractionInsertion transfer;
    FolderChoice frmGetBazarTempFolder;
    FolderChoice frmGetCDDSBackupFolder;
    editing::WatchList editedFiles;
    editing::SaveBar saveBar;

private:
    TextureViewer viewer_;
    TextureLook look_;
    Splash splash_;
    WindowLayout layout_;
    ViewportControls viewport_;
    ListingPanes listing_;
    PaneCopies copies_;
    TextureChoice choice_;
    IncrementalSearch search_;
    ArchiveReading reading_;
    ExportImportFolder exportImportFolder_;
    HandOff handOff_;
    EditLoop editLoop_;
    SaveBarLayout saveBarLayout_;
    Connection archiveRead_;
    LifeCycle lifeCycle_;
};

} // namespace pelrath
