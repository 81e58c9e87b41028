#include "copies/safe_copies.hpp"

#include "copies/copy_restoration.hpp"
#include "dialogs/folder_choice.hpp"
#include "platform/posix/file_mode.hpp"
#include "platform/runtime_error.hpp"
#include "platform/scoped_flag.hpp"
#include "platform/text.hpp"

#include <utility>

namespace pelrath::copies {

namespace {

constexpr const char* paragraph = "\r\n\r\n";

/// Which levels of a texture differ.
std::string textureLine(const batch::PlannedTexture& texture, const CddsArchive& archive) {
    const auto all = archive.textures.at(static_cast<std::size_t>(texture.texture)).mipmaps.size();
    const std::size_t differ = texture.files.size();
    std::string line = visibleText(texture.name) + "   ";
    if (differ == all) return line + (all == 1 ? "its only level" : "all " + std::to_string(all) + " levels");
    line += differ == 1 ? "level" : "levels";
    for (const batch::PlannedFile& file : texture.files) {
        line += (file.level == texture.files.front().level ? " " : ", ") + std::to_string(file.level);
    }
    return line;
}

std::string countOf(std::size_t count, const char* one, const char* several) {
    return std::to_string(count) + " " + (count == 1 ? one : several);
}

std::string captionOf(const CopyLook& look) {
    const std::size_t count = look.differences.size();
    switch (look.state) {
    case CopyState::Waiting:
    case CopyState::Looking:
        return "Textures that differ from now are being looked for:";
    case CopyState::Stopped:
        return "Not compared: choose the copy again to have it compared.";
    case CopyState::Compared:
        if (count == 0) return "Nothing differs: the archive is as this copy is.";
        return countOf(count, "texture differs", "textures differ") +
               " from now. Those with a mark are put back:";
    case CopyState::OfAnother:
        return "This is a copy of another archive: nothing can be put back from it.";
    case CopyState::Unreadable:
        return "This copy cannot be compared: " + look.reason + ".";
    }
    return {};
}

bool archiveIsReadOnly(const Session& session) try {
    return isReadOnly(fileMode(InputFile{session.archivePath}));
} catch (const RuntimeError&) { // which the restoration itself tells
    return false;
}

} // namespace

SafeCopies::SafeCopies(Session& session, SafeCopiesServices services)
    : session_(session), services_(std::move(services)), looks_(lstCopies, session, services_.beside) {
    arrange(*this);
    connections_.push_back(window.resize.connect([this] { arrange(*this); }));
    connections_.push_back(window.queryUnload.connect([this] { looks_.stop(); }));
    connections_.push_back(cmdFolder.click.connect([this] { chooseFolder(); }));
    connections_.push_back(lstCopies.click.connect([this] { showChosen(); }));
    connections_.push_back(lstCopies.rowChanged.connect([this](int row) {
        if (row == lstCopies.chosenRow()) showKnown();
    }));
    connections_.push_back(lstTextures.itemCheck.connect([this](int) {
        if (!marking_) settleButtons();
    }));
    connections_.push_back(looks_.found.connect([this] { showFound(); }));
    connections_.push_back(looks_.ended.connect([this] { settleButtons(); }));
    connections_.push_back(cmdAll.click.connect([this] { mark(true); }));
    connections_.push_back(cmdNone.click.connect([this] { mark(false); }));
    connections_.push_back(cmdStop.click.connect([this] { looks_.stop(); }));
    connections_.push_back(cmdRestore.click.connect([this] { restore(); }));
    connections_.push_back(cmdClose.click.connect([this] { window.unload(); }));
}

void SafeCopies::show(const Window& owner) {
    if (!canShow() || window.isLoaded()) return;
    window.load();
    const Box& over = owner.box();
    const Box& own = window.box();
    window.moveTo(over.left + (over.width - own.width) / 2, over.top + (over.height - own.height) / 2);
    txtSummary.setText("");
    kept_.clear();
    services_.beforeChange();
    list();
    services_.windows.showModal(window);
    lstCopies.fill({}); // what is known about them takes room
}

std::string SafeCopies::archiveName() const { return std::string{fileName(session_.archivePath)}; }

void SafeCopies::list() {
    const std::string& folder = session_.settings.cddsBackupFolder;
    txtFolder.setText(folder);
    if (folder.empty()) {
        lblCopies.setCaption("No folder for safe copies has been chosen yet: \"...\" chooses one.");
    } else {
        lblCopies.setCaption("Looking for safe copies of " + archiveName() + " ...");
        looks_.begin(folder);
    }
    settleButtons();
}

void SafeCopies::chooseFolder() {
    const std::string folder = services_.folders.SelectFolder(FolderChoice::cddsBackupTexts.instruction,
                                                              session_.settings.cddsBackupFolder);
    if (folder.empty()) return;
    session_.settings.cddsBackupFolder = folder;
    list();
}

void SafeCopies::showFound() {
    const auto count = static_cast<std::size_t>(lstCopies.count());
    if (!looks_.failure().empty()) {
        lblCopies.setCaption("The folder cannot be read: " + looks_.failure() + ".");
    } else if (count == 0) {
        lblCopies.setCaption("There is no safe copy of " + archiveName() + " in this folder.");
    } else {
        lblCopies.setCaption(countOf(count, "safe copy", "safe copies") + " of " + archiveName() +
                             ", the newest first:");
    }
    int row = 0;
    for (int i = 0; i < lstCopies.count(); ++i) {
        if (lstCopies.row(i).copy.path == kept_) row = i;
    }
    lstCopies.choose(row);
}

const CopyRow* SafeCopies::chosen() const {
    return lstCopies.chosenRow() < 0 ? nullptr : &lstCopies.row(lstCopies.chosenRow());
}

void SafeCopies::showChosen() {
    showKnown();
    if (lstCopies.chosenRow() >= 0) looks_.prefer(lstCopies.chosenRow());
    settleButtons();
}

void SafeCopies::showKnown() {
    const CopyRow* row = chosen();
    lblTextures.setCaption(row == nullptr ? "" : captionOf(row->look));
    const bool filled = lstTextures.count() > 0;
    const std::size_t count = row == nullptr ? 0 : row->look.differences.size();
    if (filled || count > 0) lstTextures.clear();
    for (std::size_t i = 0; i < count; ++i) {
        lstTextures.append(textureLine(row->look.differences[i], session_.archive));
    }
    lstTextures.setCurrentRow(0);
    mark(true);
}

void SafeCopies::mark(bool checked) {
    {
        const ScopedFlag marking{marking_};
        for (int row = 0; row < lstTextures.count(); ++row) {
            lstTextures.setChecked(row, checked);
        }
    }
    settleButtons();
}

void SafeCopies::settleButtons() {
    const CopyRow* row = chosen();
    const bool refused = row != nullptr && (row->look.state == CopyState::OfAnother ||
                                            row->look.state == CopyState::Unreadable);
    cmdStop.setEnabled(looks_.isRunning());
    cmdRestore.setEnabled(refused || lstTextures.lastCheckedRow() >= 0);
    cmdAll.setEnabled(lstTextures.count() > 0);
    cmdNone.setEnabled(lstTextures.count() > 0);
}

batch::Plan SafeCopies::markedOf(const CopyRow& row) const {
    batch::Plan plan;
    for (std::size_t i = 0; i < row.look.differences.size(); ++i) {
        if (lstTextures.isChecked(static_cast<int>(i))) plan.push_back(row.look.differences[i]);
    }
    return plan;
}

void SafeCopies::restore() {
    const CopyRow* row = chosen();
    if (row == nullptr) return;
    const FoundCopy copy = row->copy;
    if (row->look.state == CopyState::OfAnother) {
        services_.boxes.exclamation(
            copy.path + " is a copy of another archive: its list of textures is not that of " +
                session_.archivePath + ". Nothing has been changed." + paragraph +
                "Please choose another copy, or open the archive that this one was made of.",
            "Pelrath - Copy of another archive");
        return;
    }
    if (row->look.state == CopyState::Unreadable) {
        services_.boxes.exclamation("Nothing can be put back: " + row->look.reason + "." + paragraph +
                                        "Please choose another copy.",
                                    "Pelrath - Copy not readable");
        looks_.prefer(lstCopies.chosenRow());
        settleButtons();
        return;
    }
    const batch::Plan plan = markedOf(*row);
    const bool readOnly = archiveIsReadOnly(session_);
    if (!plan.empty() && agreed(*row, plan.size(), readOnly)) putBack(copy, plan, readOnly);
}

bool SafeCopies::agreed(const CopyRow& row, std::size_t count, bool readOnly) {
    const std::size_t all = row.look.differences.size();
    std::string text = count == all ? "Put the whole archive back as it is in "
                                    : "Put " + countOf(count, "texture", "textures") + " back as in ";
    text += row.copy.path + ", made " + dateText(row.copy) + "?" + paragraph;
    if (count == all) {
        text += countOf(all, "texture differs", "textures differ") + " and will be written over. ";
    } else {
        text += "The other " + std::to_string(all - count) + " that differ stay as they are. ";
    }
    text += "Before that, a safe copy of the archive as it is now is made in the same folder.";
    if (readOnly) {
        text += paragraph + session_.archivePath +
                " is read only. It is made writable for this, and read only again afterwards.";
    }
    return services_.boxes.show(text, "Pelrath - Restore", BoxIcon::Question, BoxButtons::OkCancel) ==
           BoxAnswer::Ok;
}

void SafeCopies::putBack(const FoundCopy& copy, const batch::Plan& plan, bool writeReadOnly) {
    looks_.stop();
    services_.recovery.look();
    txtSummary.setText("");
    for (CommandButton* button : {&cmdFolder, &cmdAll, &cmdNone, &cmdRestore, &cmdClose}) {
        button->setEnabled(false);
    }
    cmdStop.setEnabled(true);
    cmdStop.focus();
    txtSummary.setText(restoreFrom(copy, plan, session_.settings.cddsBackupFolder, session_,
                                   {services_.beside, services_.stopIsAsked,
                                    [this](const std::string& text) { txtSummary.setText(text); },
                                    &services_.busy, writeReadOnly}));
    cmdFolder.setEnabled(true);
    cmdClose.setEnabled(true);
    kept_ = copy.path;
    list();
    lstCopies.focus();
}

} // namespace pelrath::copies
