#pragma once

#include "dialogs/disclaimer.hpp"
#include "mainwindow/main_controls.hpp"
#include "mainwindow/splash.hpp"
#include "mainwindow/viewer/texture_viewer.hpp"
#include "mainwindow/viewport_controls.hpp"
#include "mainwindow/window_layout.hpp"
#include "platform/message_boxes.hpp"
#include "platform/screen.hpp"
#include "session/session.hpp"
#include "transfer/insertion_recovery.hpp"

#include <string>

namespace pelrath {

/// What happens from the main window's load to the end of the program.
class LifeCycle {
public:
    struct Controls {
        Window& window;
        Timer& Timer1;
        Label& Label11;
        CheckBox& chkGraphicDisplay;
        Frame& SplashFrame;
        PictureBox& dynImage;
        ListBox& texturePane;
        TextBox& Text8;
    };
    struct Parts {
        TextureViewer& viewer;
        ViewportControls& viewport;
        WindowLayout& layout;
        Splash& splash;
        Disclaimer& disclaimer;
        InsertionRecovery& recovery;
    };

    LifeCycle(const Controls& controls, const Screen& screen, MessageBoxes& boxes, Session& session,
              const Parts& parts);

    void Form_Load();
    void Form_Activate();
    /// The close; it cannot be refused. Nothing of the window reacts afterwards.
    void Form_QueryUnload();

private:
    void Timer1_Timer();
    void loadSettings();
    void tell(const std::string& text);
    void tellUnreadable(const std::string& reason, const std::string& outcome);
    void tellUnusable(const std::string& key, const std::string& reason, const std::string& outcome);
    /// Beside it, under a name of its own; false when it cannot be kept.
    [[nodiscard]] bool keepWornSettings() const;
    [[nodiscard]] std::string settingsFile() const { return settingsBaseName_ + ".ini"; }
    void saveSettings();
    /// False when the program must end.
    bool passFirstRunGate();
    void removeLeftovers() const;
    void deleteTemporaryFiles();

    Controls c_;
    const Screen& screen_;
    MessageBoxes& boxes_;
    Session& session_;
    Parts parts_;
    std::string settingsBaseName_;
    bool mayBeSaved_ = true; ///< nothing that the load could not take is lost by it
    bool activatedBefore_ = false;
    Connection connection_;
};

} // namespace pelrath
