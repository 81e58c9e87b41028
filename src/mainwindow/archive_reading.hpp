#pragma once

#include "archive/reader.hpp"
#include "controls/control.hpp"
#include "controls/list_box.hpp"
#include "controls/text_box.hpp"
#include "controls/window.hpp"
#include "mainwindow/listing_panes.hpp"
#include "mainwindow/splash.hpp"
#include "mainwindow/viewer/texture_viewer.hpp"
#include "mainwindow/window_layout.hpp"
#include "platform/event_pump.hpp"
#include "platform/file_open_dialog.hpp"
#include "platform/message_boxes.hpp"
#include "session/session.hpp"
#include "transfer/insertion_recovery.hpp"

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace pelrath {

/// Chooses an archive, reads it into the session's catalogue and fills the panes and the name list. While a
/// read runs, the commands that use an archive are disabled.
class ArchiveReading {
public:
    struct Controls {
        const Window& window;
        CommandButton& Command1;
        CommandButton& cmdReadCDDS;
        TextBox& Text1;
        TextBox& Text3;
        TextBox& Text4;
        TextBox& Text5;
        TextBox& Text7;
        TextBox& Text9;
        std::array<TextBox, 2>& Text2;
        std::array<ListBox, 3>& Output;
        ListBox& incrementalSearchList;
        TextBox& incrementalSearchText;
        PictureBox& dynImage;
        std::vector<CommandButton*> archiveCommands; ///< disabled during a read
    };
    struct Services {
        MessageBoxes& boxes;
        FileOpenDialog& fileOpen;
        EventPump& pump;
        InsertionRecovery& recovery;
    };

    ArchiveReading(const Controls& controls, const Services& services, Session& session,
                   ListingPanes& listing, WindowLayout& layout, Splash& splash, TextureViewer& viewer);

    /// As if the user had chosen it by the browse button: a path from the root.
    void open(const std::string& path);

    Signal<> ended; ///< a read, whatever it has led to

private:
    void browse();
    void take(const std::string& path);
    void openArchive();
    void readFile();
    struct ReadTables {
        ArchiveFile file;
        std::shared_ptr<const ArchiveContents> contents;
    };
    /// Nothing when the file was refused or could not be read, which has then been reported.
    std::optional<ReadTables> readTables();
    void refuse(const std::string& text, const char* title);

    template <class Tables>
    void show(const std::shared_ptr<const Tables>& tables, const ArchiveFile& file);
    template <class Tables>
    void fillPanes(const Tables& tables);
    void beginPane(Pane pane, std::string_view title);
    void takeOver(CddsArchive archive, const ArchiveFile& file);
    /// Whatever was chosen in the lists while they were filled.
    void deselectAll();

    Controls c_;
    Services services_;
    Session& session_;
    ListingPanes& listing_;
    WindowLayout& layout_;
    Splash& splash_;
    TextureViewer& viewer_;
    Connections connections_;
};

} // namespace pelrath
