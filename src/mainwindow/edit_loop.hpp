#pragma once

#include "controls/list_box.hpp"
#include "controls/window.hpp"
#include "editing/insertion_memory.hpp"
#include "editing/save_bar.hpp"
#include "editing/watch_list.hpp"
#include "mainwindow/texture_look.hpp"
#include "platform/message_boxes.hpp"
#include "transfer/texture_extraction_insertion.hpp"

namespace pelrath {

/// Brings textures back that an editor has saved: what extractions hand to editors is watched, and the bar's
/// buttons lead into the texture's dialog, or insert at once.
class EditLoop {
public:
    struct Controls {
        const Window& window;
        ListBox& texturePane;
    };
    struct Parts {
        MessageBoxes& boxes;
        TextureLook& look;
        TextureExtractionInsertion& dialog;
        editing::WatchList& list;
        editing::SaveBar& bar;
    };

    EditLoop(const Controls& controls, const Parts& parts, Session& session);

private:
    void lookAtCurrent();
    void insertCurrent();
    void insert(const editing::EditedFile& file, const editing::PictureState& picture);
    void choose(const editing::EditedFile& file);
    /// False, and the user knows why, where the archive would get another picture than the file's.
    bool fits(const editing::EditedFile& file, const editing::PictureState& picture,
              const TransferChoices& choices);
    /// False when nothing is to be inserted: no safe copy can be made, and the user will not do without.
    bool provideSafeCopy(const editing::EditedFile& file, TransferChoices& choices);
    void tellInserted(const editing::EditedFile& file, const Insertion& done);
    void refuse(const editing::EditedFile& file, const std::string& why, const std::string& remedy);

    Controls c_;
    Parts parts_;
    Session& session_;
    editing::InsertionMemory memory_;
    Connections connections_;
};

} // namespace pelrath
