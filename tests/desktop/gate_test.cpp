#include "desktop/real_window.hpp"

#include <filesystem>

namespace pelrath::test {
namespace {

/// Does something once, as soon as the sign of a long piece of work is painted: in the middle of an
/// operation.
class WhenBusy : public QObject {
public:
    explicit WhenBusy(std::function<void()> act) : act_(std::move(act)) { qApp->installEventFilter(this); }

protected:
    bool eventFilter(QObject* object, QEvent* event) override {
        const bool painted = event->type() == QEvent::Paint && object->objectName() == "busySign";
        if (const auto act = painted ? std::exchange(act_, nullptr) : nullptr) act();
        return false;
    }

private:
    std::function<void()> act_;
};

struct Gate : RealWindow {
    /// `unseen` is done in the dialog before it can be seen.
    void openDialog(
        const char* button, const std::function<void()>& unseen = [] {}) {
        user.then([this, button, unseen] {
            click(list("Output0"), 2);
            widget<QLineEdit>("Text8").setText(QString::fromStdString(folder.path()));
            QTimer::singleShot(0, unseen);
            widget<QPushButton>(button).click();
        });
        untilDialog<desktop::TransferDialog>();
    }
    /// Lets the toolkit's own timers, a late click's among them, run out.
    tour::UserScript& afterAWhile() {
        return user.until("some time", [turns = 0]() mutable { return ++turns > 10; });
    }
};

TEST_F(Gate, BehindADialogNothingReactsAndNothingLooksAsIfItHad) {
    openArchive();
    openDialog("cmdExtract");
    user.then([this] {
        widget<QPushButton>("cmdInsert").animateClick(); // comes a tenth of a second later
        widget<QPushButton>("cmdReadCDDS").click();
        widget<QCheckBox>("chkGraphicDisplay").click();
        widget<QRadioButton>("backViewportColor4").click();
        widget<QScrollBar>("HScroll0").setValue(9);
        widget<QLineEdit>("incrementalSearchText").setText("first");
        click(list("Output0"), 1);
    });
    afterAWhile().then([this] {
        EXPECT_EQ(row(program.session.mode == DialogMode::Extraction, program.session.selectedTexture),
                  "true, 2");
        EXPECT_EQ(row(widget<QCheckBox>("chkGraphicDisplay").isChecked(),
                      widget<QRadioButton>("backViewportColor0").isChecked(),
                      widget<QScrollBar>("HScroll0").value(), chosenRow("Output0"),
                      widget<QLineEdit>("incrementalSearchText").text().toStdString()),
                  "true, true, 0, 2, abd.bmp");
        EXPECT_EQ(row(program.main.chkGraphicDisplay.checked(), program.main.HScroll[0].value()), "true, 0");
        dialog<QDialog>()->close();
    });
    untilClosed();
    run();
}

TEST_F(Gate, EscapeAndTheNamedButtonWishThatTheOperationStop) {
    struct {
        const char* what;
        Qt::Key key;
        bool onButton, operating, stops;
    } const cases[]{
        {"Escape while it runs", Qt::Key_Escape, false, true, true},
        {"Space elsewhere", Qt::Key_Space, false, true, false},
        {"Space on the button", Qt::Key_Space, true, true, true},
        {"the button's letter, as a shortcut", Qt::Key{}, true, true, true},
        {"Escape before it begins", Qt::Key_Escape, false, false, false},
    };
    QPushButton& stop = widget<QPushButton>("cmdReadCDDS");
    program.refresh.gate().stopsBy(stop);
    user.then([&] {
        for (const auto& c : cases) {
            SCOPED_TRACE(c.what);
            QWidget& pressed = c.onButton ? static_cast<QWidget&>(stop) : widget<QLineEdit>("Text3");
            if (!c.operating) QTest::keyClick(&pressed, c.key);
            const desktop::Gate::Reaction operation{program.refresh.gate()};
            QShortcutEvent letter{{}, 0};
            if (c.operating && c.key == Qt::Key{}) QCoreApplication::sendEvent(&pressed, &letter);
            if (c.operating && c.key != Qt::Key{}) QTest::keyClick(&pressed, c.key);
            EXPECT_EQ(program.refresh.gate().isStopWished(), c.stops);
        }
    });
    run();
}

TEST_F(Gate, ACommandRunsOnceForEachPress) {
    openArchive();
    openDialog("cmdExtract", [] { press(in<QPushButton>("cmdExtractInsert"), Qt::Key_Return); });
    const auto summary = [this] { return program.main.transfer.ExtractSummary.text(); };
    const std::string first = "written\r\n1 file(s) extracted.",
                      again = "overwritten.\r\n0 file(s) extracted.";
    user.then([] {
        auto& action = in<QPushButton>("cmdExtractInsert");
        QCoreApplication::postEvent(&action, new QKeyEvent{QEvent::KeyPress, Qt::Key_Return, {}});
        action.click(); // what is pressed meanwhile is forgotten
    });
    afterAWhile().then([=] {
        EXPECT_TRUE(summary().ends_with(first)) << summary();
        const auto key = [](QEvent::Type type, Qt::Key code, quint64 time) {
            QKeyEvent event{type, code, {}};
            event.setTimestamp(time);
            QCoreApplication::sendEvent(&in<QPushButton>("cmdExtractInsert"), &event);
        };
        const auto mnemonic = [] {
            QShortcutEvent event{{}, 0};
            QCoreApplication::sendEvent(&in<QPushButton>("cmdExtractInsert"), &event);
        };
        for (const Qt::Key code : {Qt::Key_Return, Qt::Key_Space, Qt::Key_S}) { // held down
            key(QEvent::KeyRelease, code, 1000);
            key(QEvent::KeyPress, code, 1001);
            if (code == Qt::Key_S) mnemonic();
        }
        EXPECT_TRUE(summary().ends_with(first));
        key(QEvent::KeyRelease, Qt::Key_Return, 2000);
        key(QEvent::KeyPress, Qt::Key_Return, 2100);
        EXPECT_TRUE(summary().ends_with(again)) << summary();
        dialog<QDialog>()->close();
    });
    untilClosed();
    run();
}

TEST_F(Gate, AMnemonicActsAtOnceAndNotAgain) {
    untilLoop().then([this] {
        QTest::keyClick(&program.window, Qt::Key_B, Qt::AltModifier);
        press(*QApplication::focusWidget(), Qt::Key_Right);
        EXPECT_EQ(program.session.viewer.viewPortColor, 1);
        QTest::keyClick(&program.window, Qt::Key_D, Qt::AltModifier);
        EXPECT_FALSE(program.main.chkGraphicDisplay.checked());
    });
    afterAWhile().then([this] {
        EXPECT_EQ(row(program.session.viewer.viewPortColor, program.main.chkGraphicDisplay.checked()),
                  "1, false");
    });
    run();
}

/// What is asked to close during an operation: the dialog, which then shows what was done, or the program.
struct ClosedMeanwhile : Gate, testing::WithParamInterface<const char*> {};

TEST_P(ClosedMeanwhile, AnOperationGoesOnUndisturbedToItsEnd) {
    std::filesystem::resize_file(archive, std::uintmax_t{64} << 20); // so that the copy has a sign
    const std::string data = "8 bytes.";
    (void)folder.write("abd-4x4.dds", std::string(128, 'h') + data);
    std::filesystem::create_directory(folder.file("copies"));
    (void)folder.write("Pelrath.ini", "[Setup]\nfirsttimedone=True\n[Settings]\ncddsbackupfolder=" +
                                          folder.file("copies") + "\n");
    const bool wholeProgram = GetParam() == std::string{"Program"};
    const WhenBusy meanwhile{[this, wholeProgram] {
        QWidget& action = in<QPushButton>("cmdExtractInsert");
        QWidget* focus = QApplication::focusWidget();
        for (const Qt::Key key :
             {Qt::Key_Return, Qt::Key_Return, Qt::Key_Space, Qt::Key_Tab, Qt::Key_Escape}) {
            press(action, key);
        }
        EXPECT_EQ(QApplication::focusWidget(), focus);
        wholeProgram ? program.window.close() : dialog<QDialog>()->close();
    }};
    openArchive();
    openDialog("cmdInsert");
    user.then([this, wholeProgram] {
        in<QPushButton>("cmdExtractInsert").click();
        EXPECT_TRUE(program.main.transfer.ExtractSummary.text().ends_with("1 Mipmap(s) inserted.\r\n"));
        EXPECT_TRUE(wholeProgram || dialog<QDialog>()->isVisible());
    });
    if (!wholeProgram) untilClosed(); // else its events end with it
    run(!wholeProgram);
    EXPECT_EQ(folder.names("copies"), std::vector<std::string>{"demo-0.cdds"});
    EXPECT_NE(folder.read("demo.cdds").find(data), std::string::npos);
    EXPECT_NE(folder.read("Pelrath.ini").find("MainTop="), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(And, ClosedMeanwhile, testing::Values("Dialog", "Program"),
                         [](const auto& row) { return row.param; });

} // namespace
} // namespace pelrath::test
