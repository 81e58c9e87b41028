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

} // namespace
} // namespace pelrath::test
