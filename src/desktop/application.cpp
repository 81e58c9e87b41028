#include "desktop/application.hpp"

#include "desktop/artwork.hpp"
#include "desktop/whole_frames.hpp"
#include "platform/posix/program_folder.hpp"

#include <QApplication>
#include <QSurfaceFormat>

namespace pelrath::desktop {

Application::Application()
    : refresh([this](const std::string& text) { boxes.critical(text, programTitle); }), boxes(refresh, busy),
      fileOpen(refresh), folderPicker(refresh), pump(refresh), associations(refresh),
      main(session, {boxes, fileOpen, pump, screen, surface, windows, associations, busy, folderPicker}),
      binder(refresh, screen), window(main, binder, surface), disclaimer(main.disclaimer, binder),
      transfer(main.transfer, binder),
      bazarTempFolder(main.frmGetBazarTempFolder, "frmGetBazarTempFolder", binder),
      cddsBackupFolder(main.frmGetCDDSBackupFolder, "frmGetCDDSBackupFolder", binder) {
    QApplication::setStyle(new WholeFrames);    // the application owns it
    QApplication::setWindowIcon(programIcon()); // of message boxes before the first window, too
    session.programFolder = programFolder();
    session.otherProgramFolder = otherProgramFolder();
    windows.add(main.disclaimer.window, disclaimer);
    windows.add(main.transfer.window, transfer);
    windows.add(main.frmGetBazarTempFolder.window, bazarTempFolder);
    windows.add(main.frmGetCDDSBackupFolder.window, cddsBackupFolder);
    windows.returned = [this] {
        if (window.isVisible()) window.activate();
    };
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

void Application::prepareGraphics() {
    QSurfaceFormat format;
    format.setVersion(3, 3);
    format.setProfile(QSurfaceFormat::CoreProfile);
    QSurfaceFormat::setDefaultFormat(format);
}

} // namespace pelrath::desktop
