#include "desktop/application.hpp"

#include "desktop/accessible_frame.hpp"
#include "desktop/artwork.hpp"
#include "desktop/whole_frames.hpp"
#include "platform/posix/program_folder.hpp"
#include "several/edited_files.hpp"

#include <QApplication>
#include <QDateTime>
#include <QLineEdit>
#include <QLocale>
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
      textMenus(refresh, fileManager), recentMenu(window, main, session.settings.recentArchives, refresh),
      copies(session, copiesServices()), copiesWindow(copies, binder), several(session, severalServices()),
      laidOut(refresh, screen, Places::OfLayout), severalWindow(several, laidOut),
      inspection(session, main.transfer,
                 {busy,
                  [this] {
                      refresh.gate().dropWaiting();
                      return refresh.gate().isStopWished();
                  }}),
      inspectionWindow(inspection, binder) {
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
    windows.add(copies.window, copiesWindow);
    windows.add(several.window, severalWindow);
    windows.add(inspection.window, inspectionWindow);
    windows.returned = [this] {
        if (window.isVisible()) window.activate();
    };
    window.help = [this] { refresh.act(window, [this] { showGuide(); }); };
    window.safeCopies = [this] { showSafeCopies(); };
    window.several = [this] { showSeveral(); };
    window.ofArchive = [this](QMenu& menu) {
        const std::string& archive = session.archivePath;
        QAction* show = menu.addAction("Show Archive in &File Manager", &window,
                                       [this, archive] { fileManager.show({archive}); });
        show->setEnabled(!archive.empty());
    };
    textMenus.extend(*window.findChild<QLineEdit*>("Text1"), [this](QMenu& menu) {
        recentMenu.addTo(menu);
        QAction* many = menu.addAction("&Several Textures...\tCtrl+B", &window, [this] { showSeveral(); });
        many->setEnabled(several.isPossible());
        QAction* ways = menu.addAction("Safe Co&pies...\tCtrl+K", &window, [this] { showSafeCopies(); });
        ways->setEnabled(copies.canShow());
    });
}

several::SeveralServices Application::severalServices() {
    const auto inBackground = [this](const std::function<void()>& work, const std::function<void()>& done) {
        background.run(work, [this, done] { refresh.deliver(done); });
    };
    return {
        boxes,
        windows,
        screen,
        main.recovery,
        [this](const std::string& title, const std::string& start) {
            return main.folders.SelectFolder(title, start);
        },
        inBackground,
        [this](const std::string& suggestion) { return askWhereToSave(refresh, "Save Report", suggestion); },
        [this] {
            main.look().keepBefore();
            main.editedFiles.insertionBegins();
        },
        [this] { return isStopAsked(); },
        batchExecutable(),
        [this](const several::PlannedRun& run, const batch::Report& report) {
            tellEditedFiles(main.editedFiles, session, run, report);
        }};
}

bool Application::isStopAsked() {
    pump.processPending();
    return refresh.gate().isStopWished();
}

void Application::showSeveral() {
    refresh.operate(window, [this] { several.show(main.window, main.Text8.text()); });
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

copies::SafeCopiesServices Application::copiesServices() {
    copies::SafeCopiesServices services{boxes, windows, main.folders, main.recovery, busy};
    services.beside = [this](std::function<void(const copies::Post&)> work) {
        copyLooks.run([this, work = std::move(work)](const Background::Post& post) {
            work([&](std::function<void()> function) {
                post([this, function = std::move(function)] { refresh.deliver(function); });
            });
        });
    };
    services.stopIsAsked = [this] { return isStopAsked(); };
    services.dateText = [](std::int64_t seconds) {
        return toUtf8(QLocale().toString(QDateTime::fromSecsSinceEpoch(seconds), QLocale::ShortFormat));
    };
    services.sizeText = [](std::uint64_t bytes) {
        return toUtf8(QLocale().formattedDataSize(static_cast<qint64>(bytes)));
    };
    services.beforeChange = [this] { main.look().keepBefore(); };
    return services;
}

void Application::showSafeCopies() {
    if (copies.canShow()) refresh.operate(window, [this] { copies.show(main.window); });
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
