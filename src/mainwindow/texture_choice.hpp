#pragma once

#include "archive/dds_export.hpp"
#include "controls/control.hpp"
#include "controls/list_box.hpp"
#include "mainwindow/texture_look.hpp"
#include "mainwindow/viewer/texture_viewer.hpp"
#include "platform/message_boxes.hpp"
#include "session/session.hpp"

#include <array>

namespace pelrath {

/// The row chosen in the texture pane is the chosen texture: its name and levels are marked, and it is
/// staged for the viewer and shown.
class TextureChoice {
public:
    struct Controls {
        std::array<ListBox, 3>& Output;
        ListBox& incrementalSearchList;
        Label& Label11;
    };

    TextureChoice(const Controls& controls, Session& session, TextureViewer& viewer, TextureLook& look,
                  MessageBoxes& boxes);

private:
    void showSelectedTexture();
    void highlightLevels(std::int16_t texture);
    void stageAndShow(std::int16_t texture);

    Controls c_;
    Session& session_;
    TextureViewer& viewer_;
    TextureLook& look_;
    MessageBoxes& boxes_;
    DdsExport dds_;
    Connection connection_;
};

} // namespace pelrath
