#include "desktop/real_window.hpp"

#include <QAccessible>

namespace pelrath::test {
namespace {

/// A desktop whose program for BMP files paints all of a picture of 4 x 4 grey, and saves it in two pieces.
struct EditLoop : RealWindow {
    EditLoop() {
        for (const char* made : {"out", "copies"}) {
            folder.makeFolder(made);
        }
        (void)folder.write("editor", "#!/bin/sh\ncp \"$1\" \"$1.xcf\"\n"
                                     "{ head -c 54 \"$1.xcf\"; sleep 1; printf '%048d' 0; } >\"$1\"\n");
        folder.permit("editor", 0700);
        const auto tellDesktop = [](const char* place, const std::string& file, const std::string& text) {
            const std::filesystem::path path = std::filesystem::path{qgetenv(place).toStdString()} / file;
            std::filesystem::create_directories(path.parent_path());
            std::ofstream{path} << text;
        };
        tellDesktop("XDG_DATA_HOME", "mime/globs2", "50:image/bmp:*.bmp\n");
        tellDesktop("XDG_CONFIG_HOME", "mimeapps.list", "[Default Applications]\nimage/bmp=editor.desktop\n");
        tellDesktop("XDG_DATA_HOME", "applications/editor.desktop",
                    "[Desktop Entry]\nType=Application\nName=Any\nMimeType=image/bmp;\nExec=\"" +
                        folder.file("editor") + "\" %f\n");
    }
    tour::UserScript& untilSaid(const char* words) {
        return user.until(words, [this, words] {
            const auto& bar = widget<QWidget>("saveBar");
            return bar.isVisible() && bar.accessibleName() == words;
        });
    }
    /// Nothing else that is shown is under it.
    void expectRoom(const QWidget& bar) const {
        for (const QWidget* other : program.window.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
            const bool apart =
                other == &bar || !other->isVisible() || !other->geometry().intersects(bar.geometry());
            EXPECT_TRUE(apart) << other->objectName().toStdString();
        }
        EXPECT_TRUE(program.window.rect().contains(bar.geometry()));
    }
};

TEST_F(EditLoop, WhatAnEditorSavesIsToldWhenNothingElseIsOpenAndInserted) {
    openArchive();
    user.then([this] {
        program.session.settings.cddsBackupFolder = folder.file("copies");
        widget<QLineEdit>("Text8").setText(QString::fromStdString(folder.file("out")));
        click(list("Output0"), 2);
        widget<QPushButton>("cmdExtract").click();
    });
    untilDialog<desktop::TransferDialog>().then([] {
        for (const char* choice : {"optOutFileType0", "chkLaunchEditor", "cmdExtractInsert"}) {
            in<QAbstractButton>(choice).click();
        }
    });
    user.until("the whole file", [this] { return folder.read("out/abd-4x4.bmp").ends_with("00"); })
        .until("some time", [turns = 0]() mutable { return ++turns > 60; })
        .then([this] {
            EXPECT_FALSE(widget<QWidget>("saveBar").isVisible());
            in<QPushButton>("cmdQuit").click();
        });
    untilSaid("abd-4x4.bmp was saved").then([this] {
        auto& bar = widget<QWidget>("saveBar");
        EXPECT_EQ(QAccessible::queryAccessibleInterface(&bar)->role(), QAccessible::AlertMessage);
        EXPECT_FALSE(bar.isAncestorOf(QApplication::focusWidget()));
        for (const char* size : {"viewPortSize0", "viewPortSize1"}) {
            widget<QRadioButton>(size).click();
            expectRoom(bar);
        }
        program.window.resize(program.window.minimumSize()); // nothing below the viewport
    });
    user.until("its place", [this] { return program.window.height() == program.window.minimumHeight(); })
        .then([this] {
            expectRoom(widget<QWidget>("saveBar"));
            QTest::keyClick(&program.window, Qt::Key_N, Qt::AltModifier);
        });
    untilSaid("abd-4x4.bmp was inserted (1 level, safe copy demo-0.cdds)");
    user.until("the new picture", [this] { return pixelAt(0, 0).red() > 40; }).then([this] {
        EXPECT_EQ(pixelAt(0, 0).blue(), pixelAt(0, 0).red());
    });
    run();
}

} // namespace
} // namespace pelrath::test
