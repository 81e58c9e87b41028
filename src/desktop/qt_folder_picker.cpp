#include "desktop/qt_folder_picker.hpp"

#include "desktop/folder_picker_dialog.hpp"

#include <QApplication>

namespace pelrath::desktop {

FolderPicker::Choice QtFolderPicker::choose(const Request& request, Listener& listener) {
    QWidget* active = QApplication::activeModalWidget();
    QWidget* owner = active != nullptr || request.owner == 0 ? active : QWidget::find(request.owner);
    FolderPickerDialog dialog{request, listener, refresh_, owner};
    const Gate::Turn turn{refresh_.gate(), &dialog};
    return dialog.run();
}

} // namespace pelrath::desktop
