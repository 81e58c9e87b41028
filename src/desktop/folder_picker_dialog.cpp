#include "desktop/folder_picker_dialog.hpp"

#include "desktop/elided_label.hpp"
#include "desktop/folder_tree_view.hpp"
#include "desktop/path_edit.hpp"
#include "desktop/units.hpp"
#include "platform/posix/files.hpp"
#include "platform/posix/full_path.hpp"
#include "platform/posix/sub_folders.hpp"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include <utility>

namespace pelrath::desktop {

namespace {

constexpr int patience = 1000; // milliseconds for the first folders, before the tree is shown without them
constexpr QSize usualSize{480, 500};

} // namespace

FolderPickerDialog::FolderPickerDialog(const FolderPicker::Request& request, FolderPicker::Listener& listener,
                                       Refresh& refresh, QWidget* owner)
    : QDialog(owner), request_(request), listener_(listener), refresh_(refresh) {
    setObjectName("FolderPicker");
    setWindowTitle("Browse For Folder");
    build();
    layOut();
}

void FolderPickerDialog::build() {
    const auto make = [](auto* view, const char* name) {
        view->setObjectName(name);
        return view;
    };
    tree_ = make(new FolderTreeView{this}, "tree");
    tree_->setAccessibleName("Folders");
    tree_->choiceChanged = [this] { choiceChanged(); };
    status_ = make(new ElidedLabel{this}, "status");
    status_->setVisible(offers(folder_picker_flag::statusText));
    path_ = make(new PathEdit{this}, "path");
    path_->setVisible(offers(folder_picker_flag::editBox));
    path_->confirmed = [this] { accept(); };
    connect(path_, &QLineEdit::textChanged, this, [this] { edited(); });
    newFolder_ = make(new QPushButton{"&New Folder...", this}, "newFolder");
    newFolder_->setAutoDefault(false);
    newFolder_->setEnabled(false);
    connect(newFolder_, &QPushButton::clicked, this, [this] { askForFolder(); });
    hidden_ = make(new QCheckBox{"Show &hidden folders", this}, "hidden");
    connect(hidden_, &QCheckBox::toggled, tree_, &FolderTreeView::showHidden);
}

void FolderPickerDialog::layOut() {
    auto* rows = new QVBoxLayout{this};
    auto* instruction = new QLabel{toQString(request_.title), this};
    instruction->setObjectName("instruction");
    instruction->setTextFormat(Qt::PlainText);
    instruction->setWordWrap(true);
    rows->addWidget(instruction);
    rows->addWidget(tree_, 1);
    rows->addWidget(status_);

    auto* pathRow = new QHBoxLayout;
    auto* pathLabel = new QLabel{"Fol&der:", this};
    pathLabel->setBuddy(path_);
    pathLabel->setVisible(!path_->isHidden());
    pathRow->addWidget(pathLabel);
    pathRow->addWidget(path_);
    rows->addLayout(pathRow);

    auto* options = new QHBoxLayout;
    options->addWidget(newFolder_);
    options->addWidget(hidden_);
    options->addStretch();
    auto* answers = new QDialogButtonBox{QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this};
    ok_ = answers->button(QDialogButtonBox::Ok);
    ok_->setEnabled(false);
    connect(answers, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(answers, &QDialogButtonBox::rejected, this, &QDialog::reject);
    options->addWidget(answers);
    rows->addLayout(options);

    resize(usualSize);
    if (!offers(folder_picker_flag::newDialogStyle)) {
        newFolder_->hide();
        hidden_->hide();
        setFixedSize(size());
    }
}

FolderPicker::Choice FolderPickerDialog::run() {
    lookForFirstFolders();
    tree_->setFocus();
    exec();
    return choice_;
}

void FolderPickerDialog::lookForFirstFolders() {
    const auto look = [this](const std::string& folder, bool First::*there) {
        whetherThere(folder, [this, there](bool answer) {
            first_.*there = answer;
            if (--first_.unknown == 0) begin();
        });
    };
    look(request_.rootFolder, &First::root);
    look(request_.initialFolder, &First::initial);
    QTimer::singleShot(patience, this, [this] { begin(); });
}

void FolderPickerDialog::begin() {
    if (begun_) return;
    begun_ = true;
    tree_->begin(first_.root ? toQString(request_.rootFolder) : QString{});
    refresh_.deliver([this] { listener_.initialized(*this); });
}

void FolderPickerDialog::whetherThere(const std::string& folder, std::function<void(bool)> take) {
    background_.run([folder, take = std::move(take)](const Background::Post& post) {
        const bool there = !folder.empty() && folderExists(folder);
        post([take, there] { take(there); });
    });
}

void FolderPickerDialog::choiceChanged() {
    ++selections_;
    const QString path = tree_->chosenPath();
    const bool typing = path_->hasFocus() && path_->isModified();
    if (!typing) path_->setText(path);
    path_->setBase(path);
    newFolder_->setEnabled(!path.isEmpty());
    pushOk();
    refresh_.deliver([this, &path] { listener_.selectionChanged(*this, toUtf8(path)); });
}

void FolderPickerDialog::edited() {
    ++selections_;
    pushOk();
}

void FolderPickerDialog::pushOk() {
    ++confirmations_;
    const bool withoutPath =
        tree_->hasChoice() && tree_->chosenPath().isEmpty() && !offers(folder_picker_flag::fileSystemFolders);
    ok_->setEnabled(!path_->text().isEmpty() || withoutPath);
}

void FolderPickerDialog::accept() {
    if (!ok_->isEnabled()) return;
    const std::string typed = toUtf8(path_->text());
    if (typed.empty()) {
        choice_ = {toUtf8(tree_->chosenName()), {}};
        QDialog::accept();
        return;
    }
    const FullPath full = fullPath(toUtf8(path_->meaning()), toUtf8(path_->base()));
    if (full.systemError != 0) {
        refused(typed);
        return;
    }
    enableOk(false);
    whetherThere(full.path, [this, typed, path = full.path, number = ++confirmations_](bool there) {
        if (number != confirmations_) return;
        if (there) confirmed(path);
        if (!there) refused(typed);
    });
}

void FolderPickerDialog::reject() {
    ++confirmations_;
    QDialog::reject();
}

void FolderPickerDialog::confirmed(const std::string& path) {
    const bool fromTree = tree_->chosenPath() == toQString(path);
    const std::string name{fileName(path)};
    choice_ = {fromTree ? toUtf8(tree_->chosenName()) : name.empty() ? path : name, path};
    QDialog::accept();
}

void FolderPickerDialog::refused(const std::string& typed) {
    bool stays = false;
    if (offers(folder_picker_flag::editBox) && offers(folder_picker_flag::validate)) {
        refresh_.deliver([&] { stays = listener_.validationFailed(*this, typed); });
    }
    if (!stays) reject();
}

void FolderPickerDialog::setStatusText(const std::string& text) { status_->showText(toQString(text)); }

void FolderPickerDialog::enableOk(bool enabled) {
    // Qt would hand the focus on to Cancel, and the next Enter would press it.
    if (!enabled && ok_->hasFocus()) tree_->setFocus();
    ok_->setEnabled(enabled);
}

void FolderPickerDialog::setSelection(const std::string& path) {
    if (path == request_.initialFolder && std::exchange(first_.initial, false)) { // known to be there
        tree_->choose(toQString(path));
        return;
    }
    whetherThere(path, [this, path, number = ++selections_](bool there) {
        if (there && number == selections_) tree_->choose(toQString(path));
    });
}

void FolderPickerDialog::setFocus() {
    activateWindow();
    tree_->setFocus();
}

void FolderPickerDialog::askForFolder() {
    const std::string parent = toUtf8(tree_->chosenPath());
    bool named = false;
    const QString name = QInputDialog::getText(
        this, "New Folder", "&Name of the new folder:", QLineEdit::Normal, "New Folder", &named);
    if (!named || name.isEmpty()) return;
    const FullPath full = fullPath(toUtf8(name), parent);
    if (name.contains('/') || name == "." || name == "..") {
        folderNotMade("a folder's name holds no \"/\" and is neither \".\" nor \"..\"");
    } else if (full.systemError != 0) {
        folderNotMade(systemMessage(full.systemError));
    } else {
        makeFolderAt(full.path);
    }
}

void FolderPickerDialog::makeFolderAt(const std::string& path) {
    background_.run([this, path, number = ++selections_](const Background::Post& post) {
        const int problem = makeFolder(path);
        post([=, this] {
            if (problem != 0) folderNotMade(systemMessage(problem));
            if (problem == 0 && number == selections_) tree_->choose(toQString(path));
        });
    });
}

void FolderPickerDialog::folderNotMade(const std::string& reason) {
    QMessageBox box{QMessageBox::Warning, "New Folder", "The folder was not made: " + toQString(reason) + '.',
                    QMessageBox::Ok, this};
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

} // namespace pelrath::desktop
