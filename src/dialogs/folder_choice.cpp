#include "dialogs/folder_choice.hpp"

#include "platform/text.hpp"

namespace pelrath {

FolderChoice::FolderChoice(const Texts& texts, std::string& folder, const Window& over,
                           const Services& services)
    : texts_(texts), folder_(folder), over_(over), services_(services) {
    window.setBox({0, 0, 7500, 1770});
    window.setCaption("Form1");
    Label1.setBox({210, 180, 7080, 285});
    Label1.setCaption("<selectFolder>");
    selectedFolder.setBox({210, 495, 6630, 360});
    cmdGetExtractInsertFolder.setBox({6900, 495, 390, 360});
    cmdGetExtractInsertFolder.setCaption("...");
    cmdGetExtractInsertFolder.setAccessibleName("Choose a folder");
    cmdOK.setBox({4740, 1155, 1215, 405});
    cmdOK.setCaption("OK");
    cmdCancel.setBox({6075, 1155, 1215, 405});
    cmdCancel.setCaption("Cancel");
    connections_.push_back(
        cmdGetExtractInsertFolder.click.connect([this] { cmdGetExtractInsertFolder_Click(); }));
    connections_.push_back(cmdOK.click.connect([this] { cmdOK_Click(); }));
    connections_.push_back(cmdCancel.click.connect([this] { window.unload(); }));
}

void FolderChoice::show() {
    if (window.isLoaded()) return;
    Form_Load();
    services_.windows.showModal(window);
}

void FolderChoice::Form_Load() {
    window.load();
    const Box& under = over_.box();
    const Box& own = window.box();
    window.moveTo(under.left + (under.width - own.width) / 2, under.top + (under.height - own.height) / 2);
    window.setCaption("Folder Selection");
    Label1.setCaption(texts_.label);
    selectedFolder.setText(folder_);
}

void FolderChoice::cmdGetExtractInsertFolder_Click() {
    const std::string folder = services_.folders.SelectFolder(texts_.instruction, folder_);
    if (folder.empty()) return;
    folder_ = folder;
    selectedFolder.setText(folder);
}

void FolderChoice::cmdOK_Click() {
    folder_ = selectedFolder.text();
    if (!folder_.empty()) {
        window.unload();
        return;
    }
    services_.boxes.exclamation("Invalid Folder. Please select another folder.", "Undefined folder");
    selectedFolder.focus();
    selectedFolder.setSelection(0, characterCount(selectedFolder.text()));
}

} // namespace pelrath
