#include "real_window.hpp"

namespace pelrath::test {
namespace {

using Ways = RealWindow;

TEST_F(Ways, BackToASafeCopyByKeyboardAlone) {
    folder.makeFolder("copies");
    std::string bytes = folder.read("demo.cdds");
    const std::string blue = plainBlocks(64, 32, 0x001F);
    bytes.replace(bytes.find(plainBlocks(64, 32, 0xF800)), blue.size(), blue);
    (void)folder.write("copies/demo-7.cdds", bytes);
    openArchive();
    user.then([this] {
        program.session.settings.cddsBackupFolder = folder.file("copies");
        QTest::keyClick(&widget<QLineEdit>("Text1"), Qt::Key_K, Qt::ControlModifier);
    });
    untilDialog<desktop::SafeCopiesWindow>();
    user.until("what differs", [] { return in<QPushButton>("cmdRestore").isEnabled(); }).then([] {
        const QAbstractItemModel& copies = *in<QTreeView>("lstCopies").model();
        EXPECT_EQ(copies.index(0, 3).data().toString(), "1 texture: first.bmp");
        EXPECT_EQ(in<QListView>("lstTextures").model()->index(0, 0).data().toString(),
                  "first.bmp   its only level");
        press(*QApplication::focusWidget(), Qt::Key_Return);
    });
    untilDialog<QMessageBox>().then([] { press(*QApplication::focusWidget(), Qt::Key_Return); });
    user.until("the summary", [] {
        return dialog<desktop::SafeCopiesWindow>() != nullptr &&
               in<QPlainTextEdit>("txtSummary").toPlainText().contains("1 texture put back");
    });
    user.then([this] {
        EXPECT_EQ(folder.list("copies"), "demo-0.cdds demo-7.cdds");
        EXPECT_TRUE(folder.read("demo.cdds") == folder.read("copies/demo-7.cdds"));
        press(*QApplication::focusWidget(), Qt::Key_Escape);
    });
    untilClosed();
    user.until("the picture as it is", [this] { return pixelAt(0, 0) == QColor(0, 0, 255); });
    run();
}

TEST_F(Ways, ALookBeforeWriting) {
    (void)folder.write("first-64x32.dds", ddsFile("DXT1", 64, 32, plainBlocks(64, 32, 0x001F)));
    const std::string before = folder.read("demo.cdds");
    // In the first, second or third picture, from its top left corner.
    const auto pixelIn = [](int panel, int x) {
        auto& pictures = in<QWidget>("pictures");
        return pictures.grab().toImage().pixelColor(panel * pictures.width() / 3 + 6 + x, 20);
    };
    openArchive();
    user.then([this] {
        widget<QLineEdit>("Text8").setText(QString::fromStdString(folder.path()));
        widget<QPushButton>("cmdInsert").click();
    });
    untilDialog<desktop::TransferDialog>().then([] {
        in<QCheckBox>("chkSaveCdds").click();
        QTest::keyClick(dialog<QWidget>(), Qt::Key_H, Qt::AltModifier);
    });
    untilDialog<desktop::InspectionWindow>().then([this, pixelIn, before] {
        auto& pictures = in<QWidget>("pictures");
        const QColor ground = pictures.palette().color(QPalette::Base);
        EXPECT_TRUE(in<QPlainTextEdit>("txtFindings").toPlainText().startsWith("Well: "));
        EXPECT_EQ(pixelIn(0, 50), QColor(255, 0, 0));
        EXPECT_EQ(pixelIn(1, 50), QColor(0, 0, 255));
        EXPECT_EQ(pixelIn(2, 50), QColor(255, 0, 255));
        EXPECT_EQ(pixelIn(1, 100), ground);
        QTest::keyClick(&pictures, '+');
        QTest::keyClick(&pictures, '+');
        EXPECT_EQ(pixelIn(1, 100), QColor(0, 0, 255)); // twice as large
        EXPECT_TRUE(in<QPlainTextEdit>("txtStrip").toPlainText().contains("2:1"));
        EXPECT_TRUE(folder.read("demo.cdds") == before);
        press(pictures, Qt::Key_Escape);
    });
    untilDialog<desktop::TransferDialog>().then([] {
        EXPECT_FALSE(in<QCheckBox>("chkSaveCdds").isChecked()); // as it was chosen
        press(*dialog<QWidget>(), Qt::Key_Escape);
    });
    untilClosed();
    run();
}

} // namespace
} // namespace pelrath::test
