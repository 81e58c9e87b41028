#include "desktop/real_window.hpp"

namespace pelrath::test {
namespace {

TEST_F(RealWindow, SeveralTexturesAreExtractedAndARunIsStoppedByTheUserAndByTheEnd) {
    folder.makeFolder("out");
    std::string told;
    Connection during;
    const auto untilPlan = [&] {
        user.until("the plan",
                   [] { return isSeen(dialog<QDialog>()) && in<QPushButton>("run").isEnabled(); });
    };
    // What is pressed while the run goes on, and what is told then.
    const auto runUnder = [&](const std::function<void()>& act) {
        user.then([&] { in<QPushButton>("backToPlan").click(); });
        untilPlan();
        user.then([&, act] {
            during = program.several.runBegins.connect(act);
            QTest::keyClick(dialog<QDialog>(), Qt::Key_T, Qt::AltModifier);
            told = program.several.summary.caption();
        });
    };
    openArchive();
    user.then([&] {
        widget<QLineEdit>("Text8").setText(QString::fromStdString(folder.file("out")));
        QTest::keyClick(&widget<QLineEdit>("incrementalSearchText"), Qt::Key_B, Qt::ControlModifier);
    });
    untilDialog<desktop::SeveralWindow>().then([&] {
        QTest::keyClicks(QApplication::focusWidget(), "ab");
        auto& table = in<QTreeView>("textures");
        EXPECT_EQ(table.model()->rowCount(), 2);
        press(*QApplication::focusWidget(), Qt::Key_Return);
        EXPECT_TRUE(table.hasFocus());
        QTest::keyClick(&table, Qt::Key_A, Qt::ControlModifier);
        press(table, Qt::Key_Space);
        const QRect name = table.visualRect(table.model()->index(0, 0));
        EXPECT_EQ(program.several.textures.checkedCount(), 1U);
        QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, name.center());
        EXPECT_EQ(program.several.textures.checkedCount(), 2U);
        in<QCheckBox>("overwrite").click();
        for (const QWidget* view : dialog<QDialog>()->findChildren<QWidget*>()) {
            if (view->focusPolicy() == Qt::NoFocus || view->objectName().startsWith("qt_")) continue;
            QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(view));
            EXPECT_FALSE(spoken->text(QAccessible::Name).isEmpty()) << view->metaObject()->className();
        }
    });
    untilPlan();
    user.then([&] {
        press(in<QTreeView>("textures"), Qt::Key_Return); // the default button
        EXPECT_EQ(folder.list("out"), "abc-1024x512.dds abd-4x4.dds");
        EXPECT_EQ(program.several.summary.caption(), "2 file(s) written");
        auto& report = in<QListView>("told");
        report.selectAll();
        QContextMenuEvent wish{QContextMenuEvent::Keyboard, {3, 3}, report.mapToGlobal(QPoint{3, 3})};
        QApplication::sendEvent(report.viewport(), &wish);
        const QAction* last = QApplication::activePopupWidget()->actions().constLast();
        EXPECT_TRUE(last->text() == "Show in &File Manager" && last->isEnabled());
        QApplication::activePopupWidget()->close();
    });
    runUnder([&] {
        QTest::mouseClick(&in<QPushButton>("stop"), Qt::LeftButton);
        QTest::keyClicks(&in<QLineEdit>("folder"), "x"); // as all else, not now
    });
    user.then([&] {
        EXPECT_EQ(told, "stopped: 0 file(s) written, 2 not reached");
        EXPECT_EQ(in<QLineEdit>("folder").text().toStdString(), folder.file("out"));
        told.clear();
    });
    runUnder([&] { program.window.close(); });
    run(false);
    EXPECT_EQ(told, "stopped: 0 file(s) written, 2 not reached");
}

} // namespace
} // namespace pelrath::test
