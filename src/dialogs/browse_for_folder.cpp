#include "dialogs/browse_for_folder.hpp"

#include "platform/posix/files.hpp"
#include "platform/posix/full_path.hpp"
#include "platform/posix/program_folder.hpp"
#include "platform/posix/special_folders.hpp"
#include "platform/runtime_error.hpp"
#include "platform/scoped_flag.hpp"
#include "platform/text.hpp"

namespace pelrath {

namespace {

constexpr std::size_t longestDisplayName = 260;

[[noreturn]] void raise(std::int32_t number, const std::string& description) {
    throw RuntimeError{number, std::string{fileName(executablePath())} + ".cBrowseForFolder", description};
}

std::string expanded(const std::string& path) {
    FullPath full = fullPath(path);
    if (full.systemError != 0)
        raise(cBrowseForFolder::PlatformError + full.systemError, systemMessage(full.systemError));
    return std::move(full.path);
}

std::string shownName(const std::string& name) {
    return std::string{firstCharacters(name.substr(0, name.find('\0')), longestDisplayName)};
}

} // namespace

std::uint32_t cBrowseForFolder::flags() const {
    using namespace folder_picker_flag;
    std::uint32_t word = 0;
    if (EditBox) word |= editBox;
    if (StatusText) word |= statusText;
    if (FileSystemOnly) word |= fileSystemFolders | fileSystemAncestors;
    if (ValidateEditBox) word |= validate;
    if (UseNewUI) word |= newDialogStyle;
    return word;
}

std::string cBrowseForFolder::BrowseForFolder() {
    if (!RootDir.empty()) RootDir = expanded(RootDir);
    if (!InitialDir.empty()) InitialDir = expanded(InitialDir);
    dialog_ = nullptr;
    const ScopedFlag shown{shown_};
    const FolderPicker::Choice choice =
        picker_.choose({hwndOwner, title, flags(), RootDir, InitialDir}, *this);
    displayName_ = shownName(choice.displayName);
    return characterCount(choice.path) > longestFolderPath ? std::string{} : choice.path;
}

void cBrowseForFolder::initialized(FolderPicker::Dialog& dialog) {
    if (!InitialDir.empty()) dialog.setSelection(InitialDir);
    dialog_ = &dialog;
    Initialized.emit();
}

void cBrowseForFolder::selectionChanged(FolderPicker::Dialog& dialog, const std::string& path) {
    dialog.setStatusText(path);
    bool bAllowOk = true;
    SelectionChanged.emit(path, bAllowOk);
    if (!bAllowOk) dialog.enableOk(false);
}

bool cBrowseForFolder::validationFailed(FolderPicker::Dialog& dialog, const std::string& typed) {
    dialog.enableOk(false);
    dialog.setStatusText("Path invalid: " + typed);
    bool bKeepOpen = false;
    ValidationFailed.emit(typed, bKeepOpen);
    return bKeepOpen;
}

void cBrowseForFolder::requireShown() const {
    if (!shown_) raise(NotShown, "Operation invalid unless dialog is displayed.");
}

void cBrowseForFolder::SetFolder(const std::string& sPath) {
    requireShown();
    const std::string path = expanded(sPath);
    if (dialog_ == nullptr) return; // its events begin before its window is known
    dialog_->setSelection(path);
    dialog_->setFocus();
}

void cBrowseForFolder::SetStatus(const std::string& sText) {
    requireShown();
    if (dialog_ != nullptr) dialog_->setStatusText(sText);
}

std::string cBrowseForFolder::SpecialFolderLocation(std::int32_t eFolder) const {
    return specialFolderPath(eFolder);
}

} // namespace pelrath
