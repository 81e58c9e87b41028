#include "desktop/folder_picker_dialog.hpp"
#include "desktop/real_window.hpp"

namespace pelrath::test {
namespace {

TEST_F(RealWindow, TheFirstRunAsksAndBeginsWithTheSplash) {
    (void)folder.write("Pelrath.ini", "");
    untilDialog<QDialog>().until("the middle of the screen", [] {
        const QPoint middle = QGuiApplication::primaryScreen()->geometry().center();
        return (dialog<QDialog>()->frameGeometry().center() - middle).manhattanLength() < 6;
    });
    user.then([] {
        EXPECT_EQ(dialog<QDialog>()->childrenRect().center(), dialog<QDialog>()->rect().center());
        EXPECT_FALSE(QMessageBox{}.windowIcon().isNull()); // of what is shown before the window
        EXPECT_EQ(in<QPushButton>("Command10").text(), "I &accept");
        in<QRadioButton>("Option10").click();
        EXPECT_EQ(in<QPushButton>("Command11").text(), "Je &refuse");
        in<QPushButton>("Command10").click();
    });
    untilLoop().then([this] {
        program.window.resize(program.window.minimumSize());
        EXPECT_TRUE(widget<QWidget>("SplashFrame").isVisible());
        EXPECT_FALSE(widget<QWidget>("dynImage").isVisible()); // it would show beside the splash
    });
    run();
    EXPECT_NE(folder.read("Pelrath.ini").find("firsttimedone=True"), std::string::npos);
}

TEST_F(RealWindow, RefusingByTheFrameEndsTheProgram) {
    (void)folder.write("Pelrath.ini", "");
    untilDialog<QDialog>().then([] { dialog<QDialog>()->close(); });
    run(false);
    EXPECT_FALSE(program.window.isVisible());
    EXPECT_NE(folder.read("Pelrath.ini").find("firsttimedone=False"), std::string::npos);
}

TEST_F(RealWindow, AWorkingFolderIsAskedForUntilThereIsOne) {
    const auto show = [this](FolderChoice& model) {
        user.then([this, &model] { program.refresh.deliver([&model] { model.show(); }); });
        untilDialog<desktop::FolderChoiceDialog>();
    };
    untilLoop();
    show(program.main.frmGetBazarTempFolder);
    user.then([] {
        in<QPushButton>("cmdOK").setFocus();
        press(in<QPushButton>("cmdOK"), Qt::Key_Return);
    });
    acceptMessage();
    untilDialog<desktop::FolderChoiceDialog>()
        .until("the focus",
               [] {
                   return QApplication::focusWidget() != nullptr &&
                          QApplication::focusWidget()->objectName() == "selectedFolder";
               })
        .then([] {
            QTest::keyClicks(QApplication::focusWidget(), "/no such");
            press(*QApplication::focusWidget(), Qt::Key_Return);
        });
    show(program.main.frmGetCDDSBackupFolder);
    user.then([] { in<QPushButton>("cmdGetExtractInsertFolder").click(); });
    untilDialog<desktop::FolderPickerDialog>(); // the close comes over all of them
    run();
    EXPECT_EQ(row(program.session.settings.bazarTempFolder, program.session.settings.cddsBackupFolder),
              "/no such, ");
    EXPECT_NE(folder.read("Pelrath.ini").find("bazartempfolder=/no such\n"), std::string::npos);
}

TEST_F(RealWindow, TheDialogOfATextureWorksFromTheKeyboard) {
    openArchive();
    const auto open = [this] {
        user.then([this] {
                click(list("Output0"), 3);
                widget<QLineEdit>("Text8").setText(QString::fromStdString(folder.path()));
                program.window.activateWindow();
                widget<QPushButton>("cmdExtract").click();
            })
            .until("the dialog",
                   [] { return dialog<QDialog>() != nullptr && dialog<QDialog>()->isActiveWindow(); });
    };
    open();
    user.then([] {
        EXPECT_EQ(QApplication::focusWidget()->objectName(), "cmdExtractInsert");
        QTest::keyClick(dialog<QDialog>(), Qt::Key_X, Qt::AltModifier);
    });
    user.until("the levels one by one",
               [this] { return program.main.transfer.optMipmaps[External].selected(); });
    user.then([this] {
        EXPECT_EQ(QApplication::focusWidget()->objectName(), QString{"optMipmaps%1"}.arg(int{External}));
        auto& levels = in<QListView>("List1");
        auto& summary = in<QPlainTextEdit>("ExtractSummary");
        levels.setFocus();
        press(levels, Qt::Key_Down);
        press(levels, Qt::Key_Space);
        EXPECT_EQ(row(program.main.transfer.List1.isChecked(0), program.main.transfer.List1.isChecked(1)),
                  "true, false");
        for (const auto& [line, button] :
             {std::pair{0, Qt::RightButton}, {0, Qt::LeftButton}, {1, Qt::LeftButton}}) {
            const QRect place = levels.visualRect(levels.model()->index(line, 0));
            QTest::mouseClick(levels.viewport(), button, {},
                              {place.left() + 8, place.center().y()}); // on the box
        }
        EXPECT_EQ(
            row(levels.model()->index(0, 0).data(Qt::CheckStateRole).toInt(), levels.currentIndex().row()),
            "0, 1");
        press(levels, Qt::Key_Return); // the default button
        EXPECT_EQ(summary.toPlainText().toStdString(),
                  folder.file("\u00E9toile-2x2.dds written\n1 file(s) extracted."));
        const int height = summary.height();
        dialog<QDialog>()->resize(dialog<QDialog>()->size() + QSize{0, 100});
        EXPECT_EQ(summary.height(), height + 100);
        press(levels, Qt::Key_Escape);
    });
    untilClosed();
    open();
    user.then([] {
        EXPECT_TRUE(in<QRadioButton>("optMipmaps0").isChecked());
        EXPECT_EQ(in<QPlainTextEdit>("ExtractSummary").toPlainText(), "");
        dialog<QDialog>()->close();
    });
    untilClosed();
    run();
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"Pelrath.ini", "demo.cdds", "\u00E9toile-2x2.dds"}));
}

} // namespace
} // namespace pelrath::test
