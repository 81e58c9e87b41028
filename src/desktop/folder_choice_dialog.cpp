#include "desktop/folder_choice_dialog.hpp"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace pelrath::desktop {

FolderChoiceDialog::FolderChoiceDialog(FolderChoice& model, const QString& name, Binder& binder)
    : ModelDialog(model.window, binder) {
    setObjectName(name);
    const auto make = [this](auto* view, const char* viewName) {
        view->setParent(this);
        view->setObjectName(viewName);
        return view;
    };
    auto* label = make(new QLabel, "Label1");
    label->setTextFormat(Qt::PlainText);
    auto* folder = make(new QLineEdit, "selectedFolder");
    auto* browse = make(new QPushButton, "cmdGetExtractInsertFolder");
    auto* ok = make(new QPushButton, "cmdOK");
    auto* cancel = make(new QPushButton, "cmdCancel");
    label->setBuddy(folder);
    browse->setToolTip("Choose a folder");
    browse->setAutoDefault(false);
    ok->setDefault(true);
    binder.bind(model.Label1, *label, 'l');
    binder.bind(model.selectedFolder, *folder);
    binder.bind(model.cmdGetExtractInsertFolder, *browse);
    binder.bind(model.cmdOK, *ok, 'O');
    binder.bind(model.cmdCancel, *cancel, 'C');
}

} // namespace pelrath::desktop
