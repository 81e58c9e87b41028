#include "mainwindow/life_cycle.hpp"

#include "platform/posix/files.hpp"
#include "platform/posix/full_path.hpp"
#include "platform/posix/leftovers.hpp"
#include "platform/runtime_error.hpp"
#include "platform/version.hpp"

#include <array>
#include <utility>
#include <vector>

namespace pelrath {

LifeCycle::LifeCycle(const Controls& controls, const Screen& screen, MessageBoxes& boxes, Session& session,
                     const Parts& parts)
    : c_(controls), screen_(screen), boxes_(boxes), session_(session), parts_(parts),
      connection_(c_.Timer1.tick.connect([this] { Timer1_Timer(); })) {}

void LifeCycle::Form_Load() {
    settingsBaseName_ = joinPath(session_.programFolder.path(), "Pelrath");
    loadSettings();
    const std::string& stored = session_.settings.extractionFolder;
    session_.exportImportFolder = stored.empty() ? stored : pathFromRoot(stored);
    c_.Text8.setText(session_.exportImportFolder);
    removeLeftovers();
    session_.viewer.d3dCreated = false;
    if (!passFirstRunGate()) {
        Form_QueryUnload();
        return;
    }
    parts_.recovery.look();
    parts_.viewport.resetViewportSize();
}

// Of programs that died. What is in the way of this one shows when it writes.
void LifeCycle::removeLeftovers() const {
    const std::string& folder = session_.programFolder.path();
    (void)session_.programFolder.removeTemporaryFiles();
    removeHiddenLeftovers(folder);
    if (session_.programFolder.isOurs()) removeBuiltLeftovers({folder, session_.programFolder});
    removeTemporaryLeftovers();
    const ApplicationSettings& settings = session_.settings;
    removeLeftoversLater({session_.exportImportFolder, settings.cddsBackupFolder, settings.bazarTempFolder});
}

void LifeCycle::loadSettings() {
    ApplicationSettings& settings = session_.settings;
    try {
        loadApplicationSettings(settingsBaseName_, settings);
    } catch (const SettingsUnreadable& unread) {
        tellUnreadable(unread.what(), "The program runs with its defaults and leaves");
    } catch (const SettingsPassEnded& end) {
        tellUnusable(end.key(), end.what(), "It and the settings behind it have their defaults now.");
    }
    if (settings.viewPortColor < 0 || settings.viewPortColor >= backgroundColors) {
        const std::string stored = std::to_string(std::exchange(settings.viewPortColor, std::int16_t{0}));
        tellUnusable("ViewPortColor", stored + " is none of the background colors 0 to 8",
                     "It has its default now.");
    }
    c_.window.moveTo(settings.mainLeft * screen_.twipsPerPixel(), settings.mainTop * screen_.twipsPerPixel());
    session_.viewer.viewPortWidth = settings.viewPortWidth;
    session_.viewer.viewPortHeight = settings.viewPortHeight;
    session_.viewer.viewPortColor = settings.viewPortColor;
}

void LifeCycle::tell(const std::string& text) { boxes_.exclamation(text, "Pelrath - Settings"); }

void LifeCycle::tellUnreadable(const std::string& reason, const std::string& outcome) {
    mayBeSaved_ = false;
    tell("The settings cannot be read: " + reason + ".\r\n\r\n" + outcome +
         " the file as it is; settings changed meanwhile are not kept. Please repair or remove the file, and "
         "start the program again.");
}

// The next save puts the defaults in the place of what cannot be used.
void LifeCycle::tellUnusable(const std::string& key, const std::string& reason, const std::string& outcome) {
    mayBeSaved_ = keepWornSettings();
    tell("The setting \"" + key + "\" in " + settingsFile() + " cannot be used: " + reason + ".\r\n\r\n" +
         outcome +
         (mayBeSaved_ ? " The file as it was is kept as " + settingsFile() + ".bak."
                      : " The file stays as it is, as no copy of it can be kept: settings changed meanwhile "
                        "are not kept. Please repair or remove it, and start the program again."));
}

bool LifeCycle::keepWornSettings() const {
    try {
        const InputFile worn{settingsFile()};
        std::vector<std::byte> bytes(static_cast<std::size_t>(worn.size()));
        worn.readAt(0, bytes);
        const std::array<Bytes, 1> pieces{Bytes{bytes}};
        replaceFile(settingsFile() + ".bak", pieces, Durability::Flushed);
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

void LifeCycle::saveSettings() {
    if (!mayBeSaved_) return;
    ApplicationSettings& settings = session_.settings;
    settings.mainLeft = c_.window.box().left / screen_.twipsPerPixel();
    settings.mainTop = c_.window.box().top / screen_.twipsPerPixel();
    settings.viewPortWidth = session_.viewer.viewPortWidth;
    settings.viewPortHeight = session_.viewer.viewPortHeight;
    settings.viewPortColor = session_.viewer.viewPortColor;
    try {
        saveApplicationSettings(settingsBaseName_, settings);
    } catch (const SettingsUnreadable& unread) {
        tellUnreadable(unread.what(), "So they cannot be saved, and the program leaves");
    } catch (const SettingsPassEnded& end) {
        tell("The setting \"" + end.key() + "\" cannot be saved in " + settingsFile() + ": " + end.what() +
             ".\r\n\r\nIt and the settings behind it stay as they were.");
    }
}

bool LifeCycle::passFirstRunGate() {
    if (session_.settings.firstTimeDone == "True") return true;
    parts_.disclaimer.show();
    if (!session_.disclaimerAccepted) return false;
    session_.settings.firstTimeDone = "True";
    saveSettings();
    return true;
}

void LifeCycle::Form_Activate() {
    if (c_.window.isUnloaded()) return;
    c_.window.setCaption(std::string{"Pelrath V"} + programVersion);
    c_.Label11.setWidth((session_.viewer.viewPortWidth + 4) * screen_.twipsPerPixel());
    c_.Label11.setVisible(false);
    c_.Label11.setCaption("");
    parts_.viewport.paintSwatches();
    parts_.viewport.resetViewportSize();
    // The viewport gets the size that the option now says; the first time, "Display" sees to that.
    if (std::exchange(activatedBefore_, true)) parts_.layout.Form_Resize();
    if (!session_.viewer.d3dCreated) parts_.viewer.createDirect3D();
    if (!parts_.splash.splashDismissed()) {
        c_.chkGraphicDisplay.setChecked(true);
        c_.SplashFrame.setVisible(true);
        c_.dynImage.setVisible(false);
    }
    if (c_.texturePane.count() > 0) parts_.viewport.reselectCurrentRow();
}

void LifeCycle::Timer1_Timer() {
    c_.Timer1.setEnabled(false);
    if (!session_.viewer.Running) parts_.viewer.startRendering();
}

void LifeCycle::Form_QueryUnload() {
    if (c_.window.isUnloaded()) return;
    if (session_.viewer.Running) parts_.viewer.stopRendering();
    parts_.viewer.release();
    if (!session_.exportImportFolder.empty())
        session_.settings.extractionFolder = session_.exportImportFolder;
    saveSettings();
    deleteTemporaryFiles();
    c_.Timer1.setEnabled(false); // a tick that is still due must find nothing to start
    c_.window.unload();
}

void LifeCycle::deleteTemporaryFiles() {
    std::string left;
    for (const std::string& line : session_.programFolder.removeTemporaryFiles()) {
        left += line + "\r\n";
    }
    if (left.empty()) return;
    boxes_.exclamation("These temporary files cannot be removed:\r\n\r\n" + left +
                           "\r\nThe program ends all the same. Please remove them by hand.",
                       "Pelrath - Temporary files");
}

} // namespace pelrath
