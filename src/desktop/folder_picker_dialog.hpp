#pragma once

#include "desktop/background.hpp"
#include "desktop/refresh.hpp"
#include "platform/folder_picker.hpp"

#include <QDialog>

class QCheckBox;
class QPushButton;

namespace pelrath::desktop {

class ElidedLabel;
class FolderTreeView;
class PathEdit;

/// The folder picker's window. Whatever it wants to know of the disk it finds out in the background, so that
/// a folder that does not answer never holds it up.
class FolderPickerDialog : public QDialog, private FolderPicker::Dialog {
public:
    FolderPickerDialog(const FolderPicker::Request& request, FolderPicker::Listener& listener,
                       Refresh& refresh, QWidget* owner);

    /// Runs it modally.
    FolderPicker::Choice run();

    /// OK: closes it, once it is known that the folder is there.
    void accept() override;
    /// Cancel: no answer that is still to come counts.
    void reject() override;

private:
    void setStatusText(const std::string& text) override;
    void enableOk(bool enabled) override;
    void setSelection(const std::string& path) override;
    void setFocus() override;

    void build();
    void layOut();
    [[nodiscard]] bool offers(std::uint32_t flag) const { return (request_.flags & flag) != 0; }
    void lookForFirstFolders();
    void begin();
    void choiceChanged();
    void edited();
    void pushOk();
    /// Looks in the background whether a folder is there, and hands the answer to `take`.
    void whetherThere(const std::string& folder, std::function<void(bool)> take);
    void confirmed(const std::string& path);
    void refused(const std::string& typed);
    void askForFolder();
    void makeFolderAt(const std::string& path);
    void folderNotMade(const std::string& reason);

    FolderPicker::Request request_;
    FolderPicker::Listener& listener_;
    Refresh& refresh_;
    FolderPicker::Choice choice_;

    FolderTreeView* tree_ = nullptr;
    ElidedLabel* status_ = nullptr;
    PathEdit* path_ = nullptr;
    QPushButton* newFolder_ = nullptr;
    QCheckBox* hidden_ = nullptr;
    QPushButton* ok_ = nullptr;

    // Whether the request's folders are there; until that is known, they are taken as not there.
    struct First {
        int unknown = 2;
        bool root = false;
        bool initial = false;
    } first_;
    bool begun_ = false;
    int confirmations_ = 0; // an answer to an earlier one comes too late
    int selections_ = 0;    // the same
    Background background_;
};

} // namespace pelrath::desktop
