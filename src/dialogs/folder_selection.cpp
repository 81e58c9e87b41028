#include "dialogs/folder_selection.hpp"

#include "platform/posix/full_path.hpp"

namespace pelrath {

std::string FolderSelection::SelectFolder(const std::string& title, const std::string& initdir) {
    const auto browser = std::make_shared<cBrowseForFolder>(picker_);
    browser_ = browser;
    browser->hwndOwner = owner_.handle();
    browser->title = title;
    browser->ValidateEditBox = true;
    browser->InitialDir = fullPath(initdir).path;
    browser->FileSystemOnly = true;
    browser->StatusText = true;
    browser->EditBox = true;
    browser->UseNewUI = true;
    return browser->BrowseForFolder();
}

} // namespace pelrath
