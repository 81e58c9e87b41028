#pragma once

#include "desktop/refresh.hpp"
#include "platform/folder_picker.hpp"

namespace pelrath::desktop {

/// The folder picker over the active dialog, or over its owner where there is none.
class QtFolderPicker : public FolderPicker {
public:
    explicit QtFolderPicker(Refresh& refresh) : refresh_(refresh) {}
    Choice choose(const Request& request, Listener& listener) override;

private:
    Refresh& refresh_;
};

} // namespace pelrath::desktop
