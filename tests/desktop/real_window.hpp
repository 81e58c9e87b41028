#pragma once

#include "archive_builder.hpp"
#include "desktop/application.hpp"
#include "desktop/list_box_view.hpp"
#include "desktop/real_user.hpp"
#include "support/temporary_folder.hpp"

namespace pelrath::test {

/// The real program on a real display, and a user in front of it.
struct RealWindow : RealUser {
    RealWindow() {
        program.session.programFolder = folder.path();
        (void)folder.write("Pelrath.ini", "[Setup]\nfirsttimedone=True\n"); // not the first run
        ArchiveBuilder builder{
            CddsType::TypeCdds,
            {{"first.bmp", "DXT1", {{64, 32, plainBlocks(64, 32, 0xF800)}}},
             {"abc.bmp", "DXT1", {{1024, 512, plainBlocks(1024, 512, 0x07E0)}}},
             {"abd.bmp", "DXT1", {{4, 4, plainBlocks(4, 4, 0x001F)}}},
             {"\xE9toile.tga",
              "DXT5",
              {{4, 4, std::string(8, '\0') + plainBlocks(4, 4, 0xFFFF)}, {2, 2, std::string(16, '\0')}}}}};
        for (int i = 0; i < 200; ++i) {
            builder.textures.push_back({"more" + std::to_string(i), "ARGB", {}});
        }
        archive = folder.write("demo.cdds", builder.build());
    }

    // Does what was scripted, and closes the window in the end.
    void run(bool closing = true) {
        if (closing) user.then([this] { program.window.close(); });
        const auto start = [this] { // the first run's terms are shown before start() returns
            program.start(asked);
            QApplication::exec();
        };
        runFor(start, [this] { program.window.close(); });
    }
    tour::UserScript& untilLoop() {
        return user.until("the loop", [this] { return program.session.viewer.Running; });
    }
    void openArchive() {
        untilLoop().then([this] { widget<QPushButton>("Command1").click(); });
        untilDialog<QFileDialog>()
            .then([this] {
                EXPECT_EQ(dialog<QFileDialog>()->windowTitle(), "Select .CDDS file to analyse");
                in<QLineEdit>("fileNameEdit").setText(QString::fromStdString(archive));
                press(in<QLineEdit>("fileNameEdit"), Qt::Key_Return);
            })
            .until("the panes", [this] { return list("Output0").model()->rowCount() == 204; })
            .until("the picture", [this] { return pixelAt(0, 0) == QColor(255, 0, 0); });
    }

    template <class Widget>
    Widget& widget(const char* name) {
        return *program.window.findChild<Widget*>(name);
    }
    desktop::ListBoxView& list(const char* name) { return widget<desktop::ListBoxView>(name); }
    int chosenRow(const char* name) {
        const QModelIndexList rows = list(name).selectionModel()->selectedIndexes();
        return rows.size() == 1 ? rows[0].row() : -1;
    }
    QColor pixelAt(int x, int y) {
        return widget<desktop::ViewportWidget>("viewport").grab().toImage().pixelColor(x, y);
    }
    void click(desktop::ListBoxView& view, int row) {
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {},
                          view.visualRect(view.model()->index(row, 0)).center());
    }

    TemporaryFolder folder, temporary;
    TemporaryFilesIn temporaryFiles{temporary.path()};
    std::string archive;
    CommandLine asked;
    desktop::Application program;
};

} // namespace pelrath::test
