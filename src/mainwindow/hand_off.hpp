#pragma once

#include "controls/control.hpp"
#include "controls/text_box.hpp"
#include "controls/window.hpp"
#include "mainwindow/texture_look.hpp"
#include "platform/message_boxes.hpp"
#include "session/session.hpp"
#include "transfer/texture_extraction_insertion.hpp"

namespace pelrath {

/// Opens the extraction and insertion dialog, once everything that it needs has been chosen.
class HandOff {
public:
    struct Controls {
        const Window& window;
        TextBox& Text8;
        CommandButton& cmdExtract;
        CommandButton& cmdInsert;
    };

    HandOff(const Controls& controls, MessageBoxes& boxes, Session& session, TextureLook& look,
            TextureExtractionInsertion& dialog);

private:
    void start(DialogMode mode);
    void checkAndOpenDialog();
    /// False for none, and for one that no file can be named after; that has been told.
    bool textureIsChosen();

    Controls c_;
    MessageBoxes& boxes_;
    Session& session_;
    TextureLook& look_;
    TextureExtractionInsertion& dialog_;
    Connections connections_;
};

} // namespace pelrath
