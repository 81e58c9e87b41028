#pragma once

#include "controls/modal_windows.hpp"
#include "copies/copy_looks.hpp"
#include "copies/safe_copies_controls.hpp"
#include "dialogs/folder_selection.hpp"
#include "platform/busy_sign.hpp"
#include "platform/message_boxes.hpp"
#include "session/session.hpp"
#include "transfer/insertion_recovery.hpp"

#include <functional>
#include <string>

namespace pelrath::copies {

/// What the window needs of the system.
struct SafeCopiesServices {
    MessageBoxes& boxes;
    ModalWindows& windows;
    FolderSelection& folders;
    InsertionRecovery& recovery;
    BusySign& busy;
    Beside beside = {};
    std::function<bool()> stopIsAsked = {}; ///< called between two textures; paints the windows
    std::function<std::string(std::int64_t)> dateText = {};  ///< of seconds since 1970
    std::function<std::string(std::uint64_t)> sizeText = {}; ///< of bytes
    std::function<void()> beforeChange = [] {};              ///< the archive may be changed now
};

/// The window "Safe Copies": the copies of the archive in the folder for safe copies, what differs in each
/// from the archive as it is, and the way back to one, for all textures that differ or for some.
class SafeCopies : public SafeCopiesControls {
public:
    SafeCopies(Session& session, SafeCopiesServices services);

    /// There is an archive that can have copies.
    [[nodiscard]] bool canShow() const { return !session_.archive.textures.empty(); }
    /// Opens it over `owner` and returns when it has been closed. Does nothing where it cannot be shown, or
    /// is open already.
    void show(const Window& owner);

    [[nodiscard]] std::string dateText(const FoundCopy& copy) const { return services_.dateText(copy.made); }
    [[nodiscard]] std::string sizeText(const FoundCopy& copy) const { return services_.sizeText(copy.bytes); }

private:
    void list();
    void chooseFolder();
    void showFound();
    void showChosen();
    void showKnown();
    void mark(bool checked);
    void settleButtons();
    void restore();
    [[nodiscard]] batch::Plan markedOf(const CopyRow& row) const;
    [[nodiscard]] bool agreed(const CopyRow& row, std::size_t count, bool readOnly);
    void putBack(const FoundCopy& copy, const batch::Plan& plan, bool writeReadOnly);
    [[nodiscard]] const CopyRow* chosen() const;
    [[nodiscard]] std::string archiveName() const;

    Session& session_;
    SafeCopiesServices services_;
    CopyLooks looks_;
    std::string kept_;     ///< the copy that is to be chosen again
    bool marking_ = false; ///< several textures at once
    Connections connections_;
};

} // namespace pelrath::copies
