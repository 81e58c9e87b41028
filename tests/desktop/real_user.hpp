#pragma once

#include "user_script.hpp"

#include <QTest>
#include <QtWidgets>

#include <gtest/gtest.h>

namespace pelrath::test {

/// A user in front of the display.
struct RealUser : testing::Test {
    /// Runs it with the user doing what was scripted.
    void runFor(
        const std::function<void()>& program, const std::function<void()>& end = [] {}) {
        ASSERT_EQ(user.missed(), ""); // nobody would end it
        user.onGivingUp = [end] {
            if (QWidget* open = QApplication::activeModalWidget()) open->close();
            end();
        };
        user.start();
        program();
        EXPECT_TRUE(user.finished()) << "missed: " << user.missed().toStdString();
    }
    /// The innermost dialog, if it is one of that kind.
    template <class Dialog>
    static Dialog* dialog() {
        return dynamic_cast<Dialog*>(QApplication::activeModalWidget());
    }
    template <class Widget>
    static Widget& in(const char* name) {
        return *dialog<QWidget>()->findChild<Widget*>(name);
    }
    /// Before that, nothing typed into it counts.
    static bool isSeen(const QWidget* open) {
        return open != nullptr && open->windowHandle() != nullptr && open->windowHandle()->isExposed();
    }
    template <class Dialog>
    tour::UserScript& untilDialog() {
        return user.until("the dialog", [] { return isSeen(dialog<Dialog>()); });
    }
    void untilClosed() {
        user.until("its end", [] { return dialog<QDialog>() == nullptr; });
    }
    void acceptMessage() {
        untilDialog<QMessageBox>().then([] { dialog<QMessageBox>()->accept(); });
    }
    static void press(QWidget& widget, Qt::Key key, int times = 1) {
        for (; times > 0; --times)
            QTest::keyClick(&widget, key);
    }

    tour::UserScript user;
};

} // namespace pelrath::test
