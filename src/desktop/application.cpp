#include "desktop/application.hpp"

#include "desktop/accessible_frame.hpp"
#include "desktop/artwork.hpp"
#include "desktop/whole_frames.hpp"
#include "platform/posix/program_folder.hpp"

#include <QApplication>
#include <QLineEdit>
#include <QSurfaceFormat>

namespace pelrath::desktop {

Application::Application()
    : refresh([this](const std::string& text) { boxes.critical(text, programTitle); }), boxes(refresh, busy),
      fileOpen(refresh), folderPicker(refresh), pump(refresh), associations(refresh),
      main(session, {boxes, fileOpen, pump, screen, surface, windows, associations, busy, folderPicker,
                     fileWatch, background}),
      binder(refresh, screen), window(main, binder, surface), disclaimer(main.disclaimer, binder),
      transfer(main.transfer, binder),
      bazarTempFolder(main.frmGetBazarTempFolder, "frmGetBazarTempFolder", binder),
      cddsBackupFolder(main.frmGetCDDSBackupFolder, "frmGetCDDSBackupFolder", binder),
      fileManager(refresh,
                  [this](const std::string& why) { boxes.exclamation(why, "Pelrath - File manager"); }),
      textMenus(refresh, fileManager), recentMenu(window, main, session.settings.recentArchives, refresh) {
    QApplication::setStyle(new WholeFrames);           // the application owns it
    QApplication::setLayoutDirection(Qt::LeftToRight); // places are fixed, and so are the texts in them
    QApplication::setWindowIcon(programIcon());        // of message boxes before the first window, too
    tellWindowsApart();
    session.programFolder = programFolder();
    session.otherProgramFolder = otherProgramFolder();
    windows.add(main.disclaimer.window, disclaimer);
    windows.add(main.transfer.window, transfer);
    windows.add(main.frmGetBazarTempFolder.window, bazarTempFolder);
    windows.add(main.frmGetCDDSBackupFolder.window, cddsBackupFolder);
    windows.returned = [this] {
        if (window.isVisible()) window.activate();
    };
    window.help = [this] { refresh.act(window, [this] { showGuide(); }); };
    textMenus.extend(*window.findChild<QLineEdit*>("Text1"), [this](QMenu& menu) { recentMenu.addTo(menu); });
}

void Application::start(const CommandLine& asked) {
    refresh.deliver([this] { main.load(); });
    if (main.window.isUnloaded()) return;
    if (asked.wish == CommandLine::Wish::Refuse) {
        window.ready = [this, text = asked.text] { boxes.exclamation(text, programTitle); };
    } else if (!asked.archive.empty()) {
        window.ready = [this, archive = asked.archive] { main.openArchive(archive); };
    }
    window.appear();
}

void Application::showGuide() {
    const std::string file = guideFile();
    if (file.empty()) {
        boxes.exclamation("The guide is not there: it comes with the installed program.", "Pelrath - Guide");
        return;
    }
    if (!guide_) guide_ = std::make_unique<GuideWindow>(toQString(file));
    guide_->open();
}

void Application::prepareGraphics() {
    QSurfaceFormat format;
    format.setVersion(3, 3);
    format.setProfile(QSurfaceFormat::CoreProfile);
    QSurfaceFormat::setDefaultFormat(format);
}

} // namespace pelrath::desktop
