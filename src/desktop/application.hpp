#pragma once

#include "desktop/disclaimer_dialog.hpp"
#include "desktop/file_manager.hpp"
#include "desktop/folder_choice_dialog.hpp"
#include "desktop/guide_window.hpp"
#include "desktop/inspection_window.hpp"
#include "desktop/main_window.hpp"
#include "desktop/mnemonics.hpp"
#include "desktop/qt_background_work.hpp"
#include "desktop/qt_busy_sign.hpp"
#include "desktop/qt_file_associations.hpp"
#include "desktop/qt_file_watch.hpp"
#include "desktop/qt_folder_picker.hpp"
#include "desktop/qt_modal_windows.hpp"
#include "desktop/qt_services.hpp"
#include "desktop/recent_menu.hpp"
#include "desktop/safe_copies_window.hpp"
#include "desktop/several_window.hpp"
#include "desktop/text_menus.hpp"
#include "desktop/transfer_dialog.hpp"
#include "mainwindow/main.hpp"
#include "opening/command_line.hpp"
#include "session/session.hpp"
#include "several/several_textures.hpp"

#include <memory>

namespace pelrath::desktop {

/// The program put together: the session, the system's services, the main window and its face. Needs a
/// QApplication made after prepareGraphics().
class Application {
public:
    Application();

    /// Loads the main window, shows it, and opens in it the archive that was asked for, or says why there is
    /// none.
    void start(const CommandLine& asked = {});

    /// Before the QApplication is made: which OpenGL contexts are made.
    static void prepareGraphics();

    Session session;
    QtScreen screen;
    Mnemonics mnemonics; // before the gate, which is asked first
    Refresh refresh;
    QtBusySign busy;
    QtMessageBoxes boxes;
    QtFileOpenDialog fileOpen;
    QtFolderPicker folderPicker;
    QtEventPump pump;
    QtViewportSurface surface;
    QtModalWindows windows;
    QtFileAssociations associations;
    QtFileWatch fileWatch;
    QtBackgroundWork background;
    Main main;
    Binder binder;
    MainWindow window;
    DisclaimerDialog disclaimer;
    TransferDialog transfer;
    FolderChoiceDialog bazarTempFolder;
    FolderChoiceDialog cddsBackupFolder;
    FileManager fileManager;
    TextMenus textMenus;
    RecentMenu recentMenu;
    copies::SafeCopies copies;
    SafeCopiesWindow copiesWindow;
    Background copyLooks;
    several::SeveralTextures several;
    Binder laidOut; // by layouts
    SeveralWindow severalWindow;
    inspection::Inspection inspection;
    InspectionWindow inspectionWindow;

private:
    [[nodiscard]] several::SeveralServices severalServices();
    void showSeveral();
    /// The reaction that runs is to stop; lets events run.
    bool isStopAsked();
    void showGuide();
    copies::SafeCopiesServices copiesServices();
    void showSafeCopies();

    std::unique_ptr<GuideWindow> guide_;
};

} // namespace pelrath::desktop
