#include "desktop/dragged_picture.hpp"
#include "desktop/real_window.hpp"

namespace pelrath::test {
namespace {

TEST_F(RealWindow, ATextureIsFoundByTypingAndSeen) {
    openArchive();
    auto& box = widget<QLineEdit>("incrementalSearchText");
    const auto chosen = [this] {
        return row(chosenRow("Output0"), chosenRow("incrementalSearchList"), chosenRow("Output1"));
    };
    user.then([&, chosen] {
            EXPECT_EQ(row(program.window.windowTitle().toStdString(),
                          widget<QLineEdit>("Text4").text().toStdString()),
                      "Pelrath V1.0-1,     204 ");
            EXPECT_EQ(box.text(), "first.bmp");
            EXPECT_EQ(widget<QLineEdit>("Text1").accessibleDescription().toStdString(), archive);
            EXPECT_EQ(pixelAt(63, 31), QColor(255, 0, 0));
            EXPECT_EQ(pixelAt(64, 31), QColor(0, 0, 0)); // the clear colour beside the quad
            QTest::mouseClick(&box, Qt::LeftButton);     // selects what is there
            QTest::keyClicks(&box, "ab");                // faster than any event loop turns
            EXPECT_EQ(row(box.text().toStdString(), box.selectedText().toStdString()), "abc.bmp, c.bmp");
            press(box, Qt::Key_D);
            EXPECT_EQ(box.text(), "abd.bmp");
            press(box, Qt::Key_Backspace, 2);
            EXPECT_EQ(box.text(), "a");
            EXPECT_EQ(chosen(), "2, 2, 2");
            press(box, Qt::Key_Up);
            EXPECT_EQ(chosen(), "1, 1, 1");
        })
        .until(
            "the fitted picture",
            [this] { return pixelAt(511, 255) == QColor(0, 255, 0) && pixelAt(511, 256) == QColor(0, 0, 0); })
        .then([this] { click(list("Output0"), 3); })
        .until("soft alpha on offer", [this] { return widget<QRadioButton>("cmdShow1").isEnabled(); })
        .then([&] {
            EXPECT_EQ(box.text(), QString::fromUtf8("\u00E9toile.tga"));
            click(list("Output1"), 0);
            press(list("Output0"), Qt::Key_Return); // once more, on the row that is chosen already
            EXPECT_EQ(list("Output1").selectionModel()->selectedIndexes().size(), 2);
            widget<QRadioButton>("cmdShow1").click();
            widget<QRadioButton>("backViewportColor2").click();
        })
        .until("the mask", [this] { return pixelAt(9, 9) == QColor(255, 0, 0); })
        .then([this] { widget<QRadioButton>("viewPortSize0").click(); })
        .until("the small viewport",
               [this] {
                   return widget<QWidget>("viewport").size() == QSize(256, 256) &&
                          pixelAt(3, 3) == QColor(255, 255, 255) && pixelAt(4, 4) == QColor(255, 0, 0);
               })
        .then([&] {
            program.window.close();
            press(box, Qt::Key_Down); // too late, as all is that waits behind the close
            click(list("Output0"), 2);
            EXPECT_EQ(program.session.selectedTexture, 3);
        });
    run(false);
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"Pelrath.ini", "demo.cdds"}));
}

// Whether it is taken.
bool drop(QWidget& on, const QStringList& files) {
    QMimeData data;
    QList<QUrl> urls;
    for (const QString& file : files) {
        urls << QUrl::fromLocalFile(file);
    }
    data.setUrls(urls);
    QDragEnterEvent enter{{5, 5}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {}};
    QApplication::sendEvent(&on, &enter);
    if (!enter.isAccepted()) return false;
    QDropEvent end{{5, 5}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {}};
    QApplication::sendEvent(&on, &end);
    return end.dropAction() == Qt::CopyAction;
}

TEST_F(RealWindow, AnArchiveComesFromOutsideAndCommandsHaveKeysInEachBox) {
    asked.archive = archive;
    const std::string bytes =
        ArchiveBuilder{CddsType::TypeCdds, {{"one.bmp", "DXT1", {{4, 4, plainBlocks(4, 4, 0x07E0)}}}}}
            .build();
    const QString other = QString::fromStdString(folder.write("\u00E9t\u00E9.CDDS", bytes));
    auto& box = widget<QLineEdit>("incrementalSearchText");
    auto& label = widget<QLabel>("Label1");
    user.until("the picture", [this] { return pixelAt(0, 0) == QColor(255, 0, 0); }).then([&, other] {
        EXPECT_EQ(widget<QLineEdit>("Text1").text().toStdString(), archive);
        EXPECT_EQ(
            row(list("Output0").model()->rowCount(), widget<QCheckBox>("chkGraphicDisplay").isChecked()),
            "204, true");
        widget<QLineEdit>("Text8").setFocus();
        QTest::keyClick(&widget<QLineEdit>("Text8"), Qt::Key_F, Qt::ControlModifier);
        EXPECT_EQ(row(box.hasFocus(), box.selectedText() == "first.bmp"), "true, true");
        (void)folder.write("demo.cdds", bytes);
        press(box, Qt::Key_F5);
        EXPECT_EQ(list("Output0").model()->rowCount(), 1);
        {
            const desktop::Gate::Reaction operation{program.refresh.gate()};
            EXPECT_FALSE(drop(label, {other}));
        }
        EXPECT_FALSE(drop(label, {other, other}));
        EXPECT_FALSE(drop(label, {"/a.bmp"}));
        EXPECT_TRUE(drop(box, {other}));
    });
    user.until("the dropped one",
               [&, other] { return widget<QLineEdit>("Text1").text() == other && box.text() == "one.bmp"; });
    // The menu of a text, by its entries; one of them is taken.
    const auto menuOf = [](QWidget& view, const QString& taken) {
        QContextMenuEvent wish{QContextMenuEvent::Mouse, {3, 3}, view.mapToGlobal(QPoint{3, 3})};
        QApplication::sendEvent(&view, &wish);
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        QStringList entries;
        for (QAction* entry : menu->actions()) {
            if (entry->isEnabled()) entries << entry->text().section('\t', 0, 0);
            if (entry->text().contains(taken)) entry->trigger();
        }
        menu->close();
        return entries.join(';').toStdString();
    };
    user.then([&, menuOf] {
            auto& lines = list("Output1");
            lines.selectAll();
            EXPECT_EQ(menuOf(*lines.viewport(), "Offset"),
                      "&Copy Lines;Copy &Name;Copy &Offset in Hex;;Show Archive in &File Manager");
            const QString offset = QApplication::clipboard()->text();
            QTest::keyClick(&lines, Qt::Key_C, Qt::ControlModifier);
            EXPECT_TRUE(QApplication::clipboard()->text().endsWith("\t" + offset));
            QString path = QString::fromStdString(menuOf(widget<QLineEdit>("Text1"), "demo.cdds"));
            EXPECT_EQ(path.remove(QString::fromStdString(folder.path())).toStdString(),
                      ";Select All;;Recent Archives;&1  /\u00E9t\u00E9.CDDS;&2  /demo.cdds;Clear &This List;;"
                      "&Several Textures...;Safe Co&pies...;Show in &File Manager");
        })
        .until("the one before", [this] { return list("Output0").model()->rowCount() == 1; });
    for (const Qt::Key key : {Qt::Key_E, Qt::Key_I}) {
        user.then([&box, key] { QTest::keyClick(&box, key, Qt::ControlModifier); });
        acceptMessage(); // no folder is chosen
    }
    run();
    EXPECT_EQ(program.session.mode, DialogMode::Insertion);
}

TEST_F(RealWindow, TheLoopStopsAndStartsButNotInsideAMessageBox) {
    openArchive();
    auto& display = widget<QCheckBox>("chkGraphicDisplay");
    user.then([&] {
            display.click();
            EXPECT_FALSE(program.session.viewer.Running);
        })
        .until("no viewport", [this] { return !widget<QWidget>("dynImage").isVisible(); })
        .then([&] {
            EXPECT_FALSE(widget<QRadioButton>("backViewportColor0").isEnabled());
            click(list("Output0"), 1);
            display.click();
        })
        .until("the picture",
               [this] { return program.session.viewer.Running && pixelAt(0, 0) == QColor(0, 255, 0); })
        .then([&] {
            display.click();
            (void)folder.write("demo.cdds", "short"); // replaced while it is open
        })
        .then([&] { display.click(); });
    untilDialog<QMessageBox>()
        .until("some time", [turns = 0]() mutable { return ++turns > 10; })
        .then([this] {
            // A loop in there would keep the reaction behind the box from going on.
            EXPECT_FALSE(program.session.viewer.Running);
            EXPECT_TRUE(dialog<QMessageBox>()->text().contains("has been changed"));
            dialog<QMessageBox>()->accept();
        });
    untilLoop().then([this] {
        EXPECT_EQ(widget<QLabel>("Label11").text(), "Texture not available !");
        widget<QPushButton>("cmdReadCDDS").click(); // no archive any more, so that the first row is chosen
    });
    untilDialog<QMessageBox>(); // the close comes under the message, as the end of a desktop session does
    run();
    EXPECT_TRUE(program.main.window.isUnloaded());
    EXPECT_FALSE(program.session.viewer.Running);
}

TEST_F(RealWindow, AWindowTooLargeFitsTheScreenAndItsStoredPlaceIsKept) {
    (void)folder.write("Pelrath.ini",
                       "[Settings]\nMainTop=9000\nMainLeft=-9000\n[Setup]\nfirsttimedone=True\n");
    program.main.window.setBox({0, 0, 60000, 60000});
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    untilLoop()
        .until("the whole height",
               [&] {
                   const int free = screen.height() - program.window.frameGeometry().height();
                   return free >= 0 && free < 40;
               })
        .then([&] { EXPECT_LE(program.window.frameGeometry().width(), screen.width()); });
    run();
    EXPECT_NE(folder.read("Pelrath.ini").find("MainTop=9000\nMainLeft=-9000\n"), std::string::npos);
}

// Whether all captions have their window's font, and room.
bool captionsFit(const QWidget& window) {
    const auto views = window.findChildren<QWidget*>();
    return std::all_of(views.begin(), views.end(), [&window](const QWidget* view) {
        const auto* label = qobject_cast<const QLabel*>(view);
        const auto* button = qobject_cast<const QAbstractButton*>(view);
        const QString text = label != nullptr ? label->text() : button != nullptr ? button->text() : "";
        if (text.isEmpty() || view->width() == 0) return true;
        const QRect needed = view->fontMetrics().boundingRect(
            view->contentsRect(),
            Qt::TextShowMnemonic | (label != nullptr && label->wordWrap() ? Qt::TextWordWrap : 0), text);
        const bool marked = button != nullptr && qobject_cast<const QPushButton*>(button) == nullptr;
        const int mark = marked ? view->style()->pixelMetric(QStyle::PM_IndicatorWidth) : 0;
        return view->font().pointSizeF() == window.font().pointSizeF() &&
               view->font().stretch() == window.font().stretch() && needed.width() + mark <= view->width() &&
               needed.height() <= view->height();
    });
}

TEST_F(RealWindow, EachWindowHasOneFontInWhichItsCaptionsFit) {
    const QFont usual = QApplication::font();
    const std::initializer_list<QWidget*> windows{&program.window, &program.transfer,
                                                  &program.bazarTempFolder, &program.disclaimer};
    untilLoop();
    // The desktop's font, changed while the windows stand, and theirs: the same where there is room for it.
    for (const auto& [desktops, least, most] : {std::array{6.0, 6.0, 6.0}, {20, 6.1, 19}, {5.5, 5.5, 5.5}}) {
        user.then([usual, desktops] {
            QFont font = usual;
            font.setPointSizeF(desktops);
            QApplication::setFont(font);
        });
        for (const QWidget* window : windows) {
            user.until("room for " + window->objectName() + QString{" at %1"}.arg(desktops),
                       [window, least, most] {
                           const double shown = window->font().pointSizeF();
                           return shown >= least && shown <= most && captionsFit(*window);
                       });
        }
        user.then([this] {
            EXPECT_EQ(widget<QWidget>("Output0").font().pointSizeF(), 9); // the listing keeps its own
            EXPECT_EQ(widget<QWidget>("Output0").font().stretch(), 100);
        });
    }
    user.then([usual] { QApplication::setFont(usual); });
    run();
}

TEST_F(RealWindow, EveryControlCanBeReachedAndHasAName) {
    openArchive(); // the splash covers the viewport before
    user.then([this] {
        QStringList nameless;
        for (const QWidget* view : program.window.findChildren<QWidget*>()) {
            if (view->objectName().startsWith("qt_") || view->focusPolicy() == Qt::NoFocus) continue;
            QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(view));
            if (spoken == nullptr || spoken->text(QAccessible::Name).isEmpty())
                nameless << view->objectName();
        }
        EXPECT_EQ(nameless.join(' ').toStdString(), "");
        EXPECT_EQ(program.main.window.handle(), program.window.winId());
        const QImage swatch = widget<QRadioButton>("backViewportColor2").grab().toImage();
        EXPECT_EQ(swatch.pixelColor(swatch.rect().center()), QColor(255, 0, 0));
        const QImage chosen = widget<QRadioButton>("backViewportColor0").grab().toImage();
        EXPECT_NE(chosen.pixel(0, 9), swatch.pixel(0, 9)) << "its frame";
        press(list("Output0"), Qt::Key_Right);
        EXPECT_GT(widget<QScrollBar>("HScroll0").value(), 0);
        auto* first = &widget<QLineEdit>("Text1");
        first->setFocus();
        QStringList visited;
        for (int i = 0; i < 40 && (i == 0 || QApplication::focusWidget() != first); ++i) {
            visited << QApplication::focusWidget()->objectName();
            press(*QApplication::focusWidget(), Qt::Key_Tab);
        }
        EXPECT_EQ(visited.mid(0, 6).join(' ').toStdString(),
                  "Text1 Command1 cmdReadCDDS Text8 cmdGetExtractInsertFolder incrementalSearchText");
        for (const char* name :
             {"Output0", "Output1", "Output2", "chkGraphicDisplay", "viewPortSize1", "Text5"}) {
            EXPECT_TRUE(visited.contains(name)) << name << " not in " << visited.join(' ').toStdString();
        }
        EXPECT_EQ(visited.last(2).join(' ').toStdString(), "viewport texelStrip");
    });
    run();
}

TEST_F(RealWindow, ATextureIsLookedAtByMouseAndKeyboard) {
    openArchive();
    auto& viewport = widget<desktop::ViewportWidget>("viewport");
    const auto says = [this](const char* view) {
        const QString text = widget<QPlainTextEdit>("texelStrip").toPlainText();
        EXPECT_TRUE(text.contains(view)) << view << " not in " << text.toStdString();
    };
    const auto wheel = [&viewport](int turn, QPoint pixels = {}) {
        const QPoint place{300, 200};
        QWheelEvent event{place, viewport.mapToGlobal(place), pixels, {0, turn}, {}, {}, {}, false};
        QApplication::sendEvent(&viewport, &event);
    };
    user.then([&] {
            click(list("Output0"), 1); // 1024 x 512, all green
            QTest::mouseMove(&viewport, {300, 200});
        })
        .until("the texel under the mouse",
               [this] { return widget<QPlainTextEdit>("texelStrip").toPlainText().startsWith("601,401 "); })
        .then([&] {
            says("R  0 G255 B  0 A255 #00FF00FF\nlevel 0  1:2 ");
            wheel(60); // half a step
            says(" 1:2 ");
            wheel(60);
            says(" 1:1.33 ");
            QTest::mousePress(&viewport, Qt::LeftButton, {}, {300, 200});
            QTest::mouseMove(&viewport, {290, 190});
            EXPECT_TRUE(viewport.hasFocus());
        })
        .until("the drag",
               [this] { return widget<QPlainTextEdit>("texelStrip").toPlainText().startsWith("600,254 "); })
        .then([&] {
            QContextMenuEvent wish{QContextMenuEvent::Keyboard, {}, {}};
            QApplication::sendEvent(&viewport, &wish); // it hears where the button is let go
            QApplication::activePopupWidget()->close();
            QTest::mouseMove(&viewport, {296, 190});
        })
        .until("no drag any more",
               [this] { return widget<QPlainTextEdit>("texelStrip").toPlainText().startsWith("608,254 "); })
        .then([&] {
            QTest::keyClick(&viewport, '1');
            says(" 1:1 ");
            QTest::keyClick(&viewport, '+');
            says(" 1.5:1 ");
            const auto column = [this] {
                return widget<QPlainTextEdit>("texelStrip").toPlainText().section(',', 0, 0).toInt();
            };
            const int before = column();
            wheel(-16, {-3, 0}); // of a touchpad that is not known to be one
            EXPECT_EQ(column(), before + 2);
            QTest::mouseDClick(&viewport, Qt::LeftButton, {}, {9, 9});
            says(" 1:2 ");
            click(list("Output0"), 3); // 4 x 4, clear, but white
        })
        .then([&] {
            press(viewport, Qt::Key_PageDown);
            says("level 1  1:1    DXT5");
            press(viewport, Qt::Key_PageUp);
            QTest::keyClick(&viewport, '1');
            for (int i = 0; i < 6; ++i)
                QTest::keyClick(&viewport, '+');
            QTest::keyClick(&viewport, 'q');
            widget<QRadioButton>("cmdShow2").click();
        })
        .until("the ground behind 8:1",
               [this] {
                   return pixelAt(31, 31) == QColor(255, 255, 255) &&
                          pixelAt(32, 32) == QColor(153, 153, 153);
               })
        .then([&] {
            QTest::keyClick(&viewport, 'a');
            QContextMenuEvent wish{QContextMenuEvent::Keyboard, {}, {}};
            QApplication::sendEvent(&viewport, &wish);
        })
        .until("alpha as grey", [this] { return pixelAt(31, 31) == QColor(0, 0, 0); })
        .then([] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            QStringList checked;
            for (QAction* entry : menu->actions()) {
                if (entry->isChecked()) checked << entry->text();
                if (entry->text().startsWith("Cop")) entry->trigger();
            }
            EXPECT_EQ(checked.join(';').toStdString(), "Alp&ha\tA;Che&quered Ground\tQ;&Nearest Texel\tN");
            menu->close();
            const QImage copied = QApplication::clipboard()->image();
            EXPECT_EQ(copied.size(), QSize(4, 4));
            EXPECT_EQ(copied.pixelColor(3, 3), QColor(255, 255, 255, 0));
        });
    run();
}

TEST_F(RealWindow, AKeyThatIsHeldEndsBehindADialogThatAnotherOpens) {
    openArchive();
    const auto isBefore = [this] { return program.main.look().isChecked(LookCommand::Before) == true; };
    user.then([this, isBefore] {
        program.main.look().keepBefore();
        std::string bytes = folder.read("demo.cdds");
        bytes[bytes.find(plainBlocks(4, 4, 0xF800))] = 1;
        (void)folder.write("demo.cdds", bytes);
        program.session.archiveFile = ArchiveFile{InputFile{archive}}; // as if the program had written it
        click(list("Output0"), 1), click(list("Output0"), 0);
        widget<QWidget>("viewport").setFocus();
        QTest::keyPress(&widget<QWidget>("viewport"), Qt::Key_Space);
        EXPECT_TRUE(isBefore());
        widget<QPushButton>("Command1").click();
    });
    untilDialog<QFileDialog>().until("the texture as it is", [isBefore] { return !isBefore(); });
    run();
}

TEST(DraggedPicture, IsAFileOfItsOwnNameUntilTheProgramEnds) {
    const TemporaryFolder temporary;
    const TemporaryFilesIn place{temporary.path()};
    QImage image{3, 2, QImage::Format_RGBA8888};
    image.fill(QColor(10, 20, 30, 40));
    {
        PrivateFolder folder;
        const desktop::DraggedPicture dragged{image, QString::fromUtf8("\u00E9toile"), folder};
        EXPECT_TRUE(temporary.names().empty()); // nobody wants it yet
        const QString file = dragged.urls().value(0).toLocalFile();
        EXPECT_TRUE(file.endsWith(QString::fromUtf8("/\u00E9toile.png"))) << file.toStdString();
        EXPECT_EQ(QImage{file}.convertToFormat(image.format()), image);
        QFile reading{file}; // while the next of that name is dragged
        EXPECT_TRUE(reading.open(QIODevice::ReadOnly));
        const desktop::DraggedPicture next{QImage{9, 9, image.format()}, QString::fromUtf8("\u00E9toile"),
                                           folder};
        EXPECT_EQ(next.urls(), dragged.urls());
        EXPECT_EQ(QImage::fromData(reading.readAll()).size(), image.size());
    }
    EXPECT_TRUE(temporary.names().empty());
}

} // namespace
} // namespace pelrath::test
