#include "desktop/application.hpp"
#include "desktop/list_box_view.hpp"
#include "dress.hpp"
#include "platform/posix/files.hpp"
#include "user_script.hpp"

#include <QAbstractButton>
#include <QApplication>
#include <QContextMenuEvent>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>

#include <initializer_list>
#include <iostream>
#include <optional>

namespace {

using namespace pelrath;
using pelrath::tour::UserScript;

/// Drives the real windows through what a user does, and leaves a picture of the screen after each step.
class Tour {
public:
    Tour(QString archives, QString pictures)
        : archives_(std::move(archives)), pictures_(std::move(pictures)) {}

    /// The first run, refused; then accepted, and all the rest.
    int take() {
        const QTemporaryDir folder; // as new as the program's own folder on its first run
        folder_ = folder.path();
        qputenv("HOME", folder_.toLocal8Bit()); // whose folders are on the pictures
        return refuse() && goAround() ? 0 : 1;
    }

private:
    bool refuse() {
        UserScript user;
        user.until("the terms", [] { return dialog<QDialog>() != nullptr; })
            .then([] { dialog<QDialog>()->findChild<QPushButton*>("Command11")->setFocus(); })
            .until("a moment's rest", [turns = 0]() mutable { return ++turns > restingTurns; })
            .then([this] { photograph("first-run-about-to-refuse"); })
            .then([] { dialog<QDialog>()->findChild<QPushButton*>("Command11")->click(); });
        return run(user);
    }
    bool goAround() {
        user_.onGivingUp = [this] {
            while (QWidget* dialog = QApplication::activeModalWidget()) {
                dialog->close();
            }
            program_->window.close();
        };
        firstRun();
        begin();
        // A copy: an insertion changes it.
        QFile::copy(QDir{archives_}.filePath("demo-cdds.cdds"), folder_ + "/demo-cdds.cdds");
        openArchive(folder_ + "/demo-cdds.cdds");
        look("archive-opened");
        search();
        modes();
        lookCloser();
        chooseFolders();
        extraction();
        insertion();
        edit();
        safeCopies();
        severalTextures();
        sizes();
        damagedArchive();
        user_.then([this] { program_->window.close(); });
        return run(user_);
    }
    bool run(UserScript& user) {
        program_.emplace();
        program_->session.programFolder = folder_.toStdString();
        user.start(); // the first run's terms are shown before start() returns
        program_->start();
        QApplication::exec();
        const bool finished = user.finished();
        if (!finished) std::cerr << "The tour waited in vain for " << user.missed().toStdString() << ".\n";
        program_.reset();
        return finished;
    }

    template <class Widget>
    Widget& widget(const char* name) {
        return *program_->window.findChild<Widget*>(name);
    }
    template <class Dialog>
    static Dialog* dialog() {
        return qobject_cast<Dialog*>(QApplication::activeModalWidget());
    }

    // Whatever is on the screen once it has come to rest.
    void look(const char* name) {
        rest();
        user_.then([this, name] { photograph(name); });
    }
    void rest() {
        user_.until("a moment's rest", [turns = 0]() mutable { return ++turns > restingTurns; });
    }
    void photograph(const char* name) {
        const QString number = QString{"%1"}.arg(++taken_, 2, 10, QChar{'0'});
        const QString file = pictures_ + '/' + number + '-' + name + ".png";
        QGuiApplication::primaryScreen()->grabWindow(0).save(file);
        const QRect at = window();
        std::cout << file.toStdString() << ' ' << at.width() << 'x' << at.height() << '+' << at.x() << '+'
                  << at.y() << '\n';
    }
    // Where the picture's window is on the screen, with its menu.
    QRect window() {
        const QWidget* dialog = QApplication::activeModalWidget();
        QRect at = (dialog != nullptr ? dialog : &program_->window)->frameGeometry();
        if (const QWidget* menu = QApplication::activePopupWidget()) at |= menu->frameGeometry();
        return at & QGuiApplication::primaryScreen()->geometry();
    }
    void press(const char* button) {
        user_.then([this, button] { widget<QAbstractButton>(button).click(); });
    }
    void type(const QString& text) {
        user_.then([this, text] {
            auto& box = widget<QLineEdit>("incrementalSearchText");
            box.setFocus(Qt::TabFocusReason);
            box.selectAll();
            QTest::keyClicks(&box, text);
        });
    }

    void firstRun() {
        user_.until("the terms", [] { return dialog<QDialog>() != nullptr; });
        look("first-run-in-english");
        user_.then([] { dialog<QDialog>()->findChild<QRadioButton*>("Option10")->click(); });
        look("first-run-in-french");
        user_.then([] { dialog<QDialog>()->findChild<QPushButton*>("Command10")->click(); });
    }
    void begin() {
        user_.until("the window", [this] { return program_->session.viewer.Running; });
        look("splash");
    }
    void openArchive(const QString& name) {
        press("Command1");
        user_.until("the file dialog", [] { return dialog<QFileDialog>() != nullptr; });
        look("choosing-an-archive");
        user_.then([this, name] {
            auto* box = dialog<QFileDialog>()->findChild<QLineEdit*>("fileNameEdit");
            box->setText(QDir{archives_}.absoluteFilePath(name));
            QTest::keyClick(box, Qt::Key_Return);
        });
        user_.until("the end of the dialog", [] { return dialog<QFileDialog>() == nullptr; });
    }
    void search() {
        type("gau");
        look("search-completes");
        user_.then([this] {
            for (int i = 0; i < 3; ++i) {
                QTest::keyClick(&widget<QLineEdit>("incrementalSearchText"), Qt::Key_Down);
            }
        });
        look("search-steps-on");
        type("alpha_ramp_r");
        look("no-dxt-texture");
    }
    void modes() {
        type("fx_smoke");
        look("soft-alpha-as-texture");
        press("cmdShow1");
        look("soft-alpha-as-mask");
        for (const auto& [swatch, name] : std::initializer_list<std::pair<const char*, const char*>>{
                 {"backViewportColor1", "mask-on-grey"},
                 {"backViewportColor2", "mask-on-red"},
                 {"backViewportColor3", "mask-on-yellow"},
                 {"backViewportColor4", "mask-on-green"},
                 {"backViewportColor5", "mask-on-cyan"},
                 {"backViewportColor6", "mask-on-blue"},
                 {"backViewportColor7", "mask-on-magenta"},
                 {"backViewportColor8", "mask-on-white"}}) {
            press(swatch);
            look(name);
        }
        press("cmdShow2");
        look("alpha-channel");
        press("backViewportColor0");
    }
    // Keys where the viewport has the focus.
    void keys(std::initializer_list<QKeyCombination> pressed, const char* name) {
        user_.then([this, keys = std::vector<QKeyCombination>{pressed}] {
            auto& viewport = widget<desktop::ViewportWidget>("viewport");
            viewport.setFocus(Qt::TabFocusReason);
            for (const QKeyCombination& key : keys) {
                const bool typed = key.key() < Qt::Key_Escape && key.keyboardModifiers() == Qt::NoModifier;
                typed ? QTest::keyClick(&viewport, static_cast<char>(key.key()))
                      : QTest::keyClick(&viewport, key.key(), key.keyboardModifiers());
            }
        });
        look(name);
    }
    void lookCloser() {
        type("fighter_skin_te");
        user_.then([this] {
            auto& viewport = widget<desktop::ViewportWidget>("viewport");
            const QPointF place{180, 140};
            QMouseEvent pointing{QEvent::MouseMove, place, viewport.mapToGlobal(place), {}, {}, {}};
            QApplication::sendEvent(&viewport, &pointing);
        });
        look("texel-under-the-pointer");
        keys({Qt::Key_1}, "one-to-one");
        keys({Qt::Key_Plus, Qt::Key_Plus, Qt::Key_Plus, Qt::Key_Plus, Qt::Key_Plus, Qt::Key_Plus},
             "zoomed-to-eight");
        keys({Qt::Key_Right, Qt::Key_Down}, "moved-by-the-arrows");
        keys({Qt::ShiftModifier | Qt::Key_Right, Qt::ShiftModifier | Qt::Key_Down}, "pointed-at-by-keyboard");
        keys({Qt::Key_Home, Qt::Key_V}, "averaged");
        keys({Qt::Key_N, Qt::Key_PageDown, Qt::Key_PageDown}, "level-2");
        keys({Qt::Key_L}, "all-levels");
        keys({Qt::Key_L, Qt::Key_T}, "tiled");
        keys({Qt::Key_T, Qt::Key_G}, "green-alone");
        type("fx_fire");
        press("cmdShow1");
        keys({Qt::Key_Q}, "chequered-ground-behind-a-mask");
        keys({Qt::Key_Q, Qt::Key_A}, "alpha-alone");
        type("tree_oak_summer");
        press("backViewportColor7");
        keys({Qt::Key_X}, "ground-through-clear-texels");
        press("backViewportColor0");
        user_.then([this] {
            auto& viewport = widget<desktop::ViewportWidget>("viewport");
            QContextMenuEvent wish{QContextMenuEvent::Keyboard, {}, {}};
            QApplication::sendEvent(&viewport, &wish);
        });
        look("menu-of-the-viewport");
        user_.then([] { QApplication::activePopupWidget()->close(); });
        press("viewPortSize0");
        keys({Qt::Key_Home, Qt::Key_Plus}, "closer-in-the-small-viewport");
        press("viewPortSize1");
        type("fx_smoke");
    }
    void extraction() {
        user_.then([this] {
            QDir{folder_}.mkdir("textures");
            widget<QLineEdit>("Text8").setText(folder_ + "/textures");
        });
        press("cmdExtract");
        user_.until("the dialog", [] { return dialog<QDialog>() != nullptr; });
        look("extraction");
        choosing({"cmdExtractInsert"}, "one-level-extracted");
        choosing({"optMipmaps2", "cmdExtractInsert"}, "every-level-extracted");
        choosing({"optMipmaps1", "chkOverwriteExistingFiles", "cmdExtractInsert"}, "chain-extracted");
        choosing({"optOutFileType0", "chkLaunchEditor", "cmdExtractInsert"}, "image-extracted");
        closeDialog();
    }
    // The picture just extracted comes back changed.
    void insertion() {
        user_.then([this] {
            const QString picture = folder_ + "/textures/fx_smoke_white-256x256.tga";
            QProcess::execute("convert", {picture, "-channel", "RGB", "-swirl", "180", "-fill", "orange",
                                          "-tint", "90", picture});
        });
        press("cmdInsert");
        user_.until("the dialog", [] { return dialog<QDialog>() != nullptr; });
        look("insertion");
        chooseFolder("chkDestination1", "Simulator/textures/Bazar Temp", "bazar-temp-folder");
        choosing({"optOutFileType0"}, "insertion-of-an-image");
        check();
        chooseFolder("cmdExtractInsert", "Safe copies", "safe-copy-folder");
        look("image-inserted");
        closeDialog();
        look("inserted-image-in-the-viewport");
        user_.then([this] { QTest::keyPress(&widget<desktop::ViewportWidget>("viewport"), Qt::Key_Space); });
        look("before-the-insertion");
        user_.then(
            [this] { QTest::keyRelease(&widget<desktop::ViewportWidget>("viewport"), Qt::Key_Space); });
        keys({Qt::Key_D}, "difference");
    }
    void check() {
        user_.then([] { inDialog<QPushButton>("cmdCheck")->click(); });
        user_.until("the window", [] { return inDialog<QWidget>("pictures") != nullptr; });
        user_.then([] {
            auto& pictures = *inDialog<QWidget>("pictures");
            const QPointF place{150, 120};
            QMouseEvent pointing{QEvent::MouseMove, place, pictures.mapToGlobal(place), {}, {}, {}};
            QApplication::sendEvent(&pictures, &pointing);
        });
        look("check");
        user_.then([] { QTest::keyClicks(inDialog<QWidget>("pictures"), "+++"); });
        look("check-closer");
        user_.then([] {
            QTest::keyClick(inDialog<QWidget>("pictures"), Qt::Key_Home);
            QTest::keyClick(inDialog<QWidget>("pictures"), Qt::Key_PageDown);
        });
        look("check-of-level-1");
        user_.then([] { inDialog<QPushButton>("cmdClose")->click(); });
        user_.until("the texture's dialog", [] { return inDialog<QPushButton>("cmdQuit") != nullptr; });
    }
    void safeCopies() {
        user_.then([this] { QTest::keyClick(&program_->window, Qt::Key_K, Qt::ControlModifier); });
        user_.until("what differs", [] {
            const auto* restore = inDialog<QPushButton>("cmdRestore");
            return restore != nullptr && restore->isEnabled();
        });
        look("safe-copies");
        user_.then([] { inDialog<QPushButton>("cmdRestore")->click(); });
        user_.until("the question", [] { return dialog<QMessageBox>() != nullptr; });
        look("safe-copy-question");
        user_.then([] { dialog<QMessageBox>()->button(QMessageBox::Ok)->click(); });
        user_.until("the summary", [] {
            const auto* summary = inDialog<QPlainTextEdit>("txtSummary");
            return summary != nullptr && !summary->toPlainText().isEmpty();
        });
        look("safe-copy-restored");
        user_.then([] { inDialog<QPushButton>("cmdClose")->click(); });
        user_.until("the end of the dialog", [] { return dialog<QDialog>() == nullptr; });
        look("restored-texture-in-the-viewport");
    }
    // What the editor got when the image was extracted is saved once more.
    void edit() {
        user_.then([this] {
            const QString picture = folder_ + "/textures/fx_smoke_white-256x256.tga";
            QTest::keyClick(&widget<desktop::ViewportWidget>("viewport"), 'd'); // the texture itself again
            QProcess::execute("convert",
                              {picture, "-channel", "RGB", "-fill", "steelblue", "-tint", "90", picture});
        });
        untilBar("saved");
        look("saved-in-the-editor");
        press("saveBarInsert");
        untilBar("inserted");
        look("inserted-from-the-bar");
    }
    void untilBar(const QString& word) {
        user_.until("the bar", [this, word] {
            const auto& bar = widget<QWidget>("saveBar");
            return bar.isVisible() && bar.accessibleName().contains(word);
        });
    }
    void choosing(std::initializer_list<const char*> clicks, const char* name) {
        for (const char* button : clicks) {
            user_.then([button] { dialog<QDialog>()->findChild<QAbstractButton*>(button)->click(); });
        }
        look(name);
    }
    void closeDialog() {
        user_.then([] { dialog<QDialog>()->findChild<QAbstractButton*>("cmdQuit")->click(); });
        user_.until("the end of the dialog", [] { return dialog<QDialog>() == nullptr; });
    }
    // One of the files is there already.
    void severalTextures() {
        user_.then([this] {
            auto& box = widget<QLineEdit>("incrementalSearchText");
            QTest::keyClick(&box, Qt::Key_B, Qt::ControlModifier);
        });
        user_.until("the window", [] { return inDialog<QLineEdit>("filter") != nullptr; });
        look("several-textures-to-be-chosen");
        user_.then([] { QTest::keyClicks(inDialog<QLineEdit>("filter"), "fx"); });
        user_.then([] { inDialog<QAbstractButton>("all")->click(); });
        plannedAs({"levels2"}, "several-textures");
        carriedOut("several-textures-extracted");
        user_.then([] { inDialog<QAbstractButton>("backToPlan")->click(); });
        plannedAs({"direction1"}, "several-textures-to-be-inserted");
        carriedOut("several-textures-inserted");
        user_.then([] { inDialog<QAbstractButton>("close")->click(); });
        user_.until("the end of the dialog", [] { return dialog<QDialog>() == nullptr; });
    }
    void carriedOut(const char* name) {
        user_.then([] { inDialog<QAbstractButton>("run")->click(); });
        user_.until("the report", [] { return inDialog<QAbstractButton>("saveReport")->isVisible(); });
        look(name);
    }
    void plannedAs(std::initializer_list<const char*> clicks, const char* name) {
        for (const char* button : clicks) {
            user_.then([button] { inDialog<QAbstractButton>(button)->click(); });
        }
        user_.until("the plan", [] { return inDialog<QAbstractButton>("run")->isEnabled(); });
        look(name);
    }
    void sizes() {
        press("viewPortSize0");
        look("small-viewport");
        press("viewPortSize1");
        press("chkGraphicDisplay");
        look("display-off");
        press("chkGraphicDisplay");
        user_.then([this] { program_->window.resize(990, 640); });
        look("smallest-window");
        user_.then([this] { program_->window.showMaximized(); });
        look("largest-window");
        user_.then([this] { program_->window.showNormal(); });
    }
    void damagedArchive() {
        user_.then([this] {
            QFile whole{QDir{archives_}.filePath("demo-0c.cdds")};
            QFile cut{QDir{archives_}.filePath("damaged.cdds")};
            if (whole.open(QIODevice::ReadOnly) && cut.open(QIODevice::WriteOnly))
                cut.write(whole.read(200000));
        });
        openArchive("damaged.cdds");
        user_.until("the message", [] { return dialog<QMessageBox>() != nullptr; });
        look("damaged-archive-refused");
        user_.then([this] {
            QFile::remove(QDir{archives_}.filePath("damaged.cdds"));
            dialog<QMessageBox>()->accept();
        });
    }

    void chooseFolders() {
        user_.then([this] {
            QDir{folder_}.mkpath("Simulator/textures/Bazar Temp");
            for (const char* name :
                 {"Simulator/textures/Cockpits", "Simulator/missions", "Safe copies", "\u00C9t\u00E9"}) {
                QDir{folder_}.mkpath(name);
            }
            program_->session.exportImportFolder = (folder_ + "/Simulator/textures").toStdString();
        });
        press("cmdGetExtractInsertFolder");
        untilFolder(folder_ + "/Simulator/textures");
        look("choosing-a-folder");
        typeFolder(folder_ + "/Sim");
        look("a-folder-typed-in");
        typeFolder(folder_ + "/no/such/folder");
        user_.then([] { QTest::keyClick(pickedPath(), Qt::Key_Return); });
        user_.until("the end of the dialog", [] { return dialog<QDialog>() == nullptr; });
        look("nothing-chosen");
    }
    // What is pressed in the texture's dialog needs a folder that was never chosen.
    void chooseFolder(const char* pressed, const QString& folder, const char* name) {
        user_.then([pressed] { inDialog<QAbstractButton>(pressed)->click(); });
        user_.until("the folder dialog", [] { return inDialog<QPushButton>("cmdOK") != nullptr; });
        user_.then([] { inDialog<QPushButton>("cmdOK")->click(); });
        user_.until("the message", [] { return dialog<QMessageBox>() != nullptr; });
        look("no-folder");
        user_.then([] { dialog<QMessageBox>()->accept(); });
        user_.then([] { inDialog<QPushButton>("cmdGetExtractInsertFolder")->click(); });
        user_.until("the folder picker", [] { return pickedPath() != nullptr; });
        rest(); // what is typed before it can be seen does not count
        typeFolder(folder_ + '/' + folder);
        user_.then([] { QTest::keyClick(pickedPath(), Qt::Key_Return); });
        user_.until("the end of the picker", [] { return inDialog<QPushButton>("cmdOK") != nullptr; });
        look(name);
        user_.then([] { inDialog<QPushButton>("cmdOK")->click(); });
        user_.until("the texture's dialog", [] { return inDialog<QPushButton>("cmdQuit") != nullptr; });
    }
    template <class Widget>
    static Widget* inDialog(const char* name) {
        QDialog* shown = dialog<QDialog>();
        return shown == nullptr ? nullptr : shown->findChild<Widget*>(name);
    }
    static QLineEdit* pickedPath() { return inDialog<QLineEdit>("path"); }
    void untilFolder(const QString& path) {
        user_.until("the folder picker",
                    [path] { return pickedPath() != nullptr && pickedPath()->text() == path; });
    }
    void typeFolder(const QString& path) {
        user_.then([path] {
            pickedPath()->setFocus(Qt::TabFocusReason);
            pickedPath()->selectAll();
            QTest::keyClicks(pickedPath(), path);
        });
    }

    static constexpr int restingTurns = 15; // of the script: what is on the screen has settled by then

    QString folder_;
    QString archives_;
    QString pictures_;
    int taken_ = 0;
    std::optional<desktop::Application> program_;
    UserScript user_;
};

// For TGA files, and it does nothing.
void installEditor(const QString& desktop) {
    const auto write = [&desktop](const QString& file, const QByteArray& text) {
        QDir{desktop}.mkpath(QFileInfo{file}.path());
        QFile out{desktop + '/' + file};
        if (out.open(QIODevice::WriteOnly)) out.write(text);
    };
    write("mime/globs2", "50:image/x-tga:*.tga\n");
    write("mimeapps.list", "[Default Applications]\nimage/x-tga=editor.desktop\n");
    write("applications/editor.desktop",
          "[Desktop Entry]\nType=Application\nName=Any\nMimeType=image/x-tga;\nExec=true %f\n");
}

} // namespace

int main(int argc, char* argv[]) {
    if (argc < 3 || argc > 5) {
        std::cerr << "pelrath-tour ARCHIVE-FOLDER PICTURE-FOLDER [light|dark|high-contrast [POINTS]]\n";
        return 2;
    }
    // A desktop of its own: the editors of a real one have no business in the pictures.
    const QTemporaryDir own;
    for (const char* place : {"XDG_DATA_HOME", "XDG_DATA_DIRS", "XDG_CONFIG_HOME"}) {
        qputenv(place, own.path().toUtf8());
    }
    installEditor(own.path());
    desktop::Application::prepareGraphics();
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const QApplication qt{argc, argv};
    if (argc > 3) pelrath::tour::dress(argv[3], argc > 4 ? QString{argv[4]}.toDouble() : 0);
    const QString pictures = QDir{argv[2]}.absolutePath();
    QDir::setCurrent(argv[1]); // where the file-open dialog starts
    return Tour{QDir::currentPath(), pictures}.take();
}
