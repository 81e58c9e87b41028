#pragma once

#include "desktop/model_dialog.hpp"
#include "dialogs/folder_choice.hpp"

namespace pelrath::desktop {

class FolderChoiceDialog : public ModelDialog {
public:
    /// `name` is the dialog's own among the program's windows.
    FolderChoiceDialog(FolderChoice& model, const QString& name, Binder& binder);
};

} // namespace pelrath::desktop
