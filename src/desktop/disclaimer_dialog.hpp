#pragma once

#include "desktop/model_dialog.hpp"
#include "dialogs/disclaimer.hpp"

namespace pelrath::desktop {

class DisclaimerDialog : public ModelDialog {
public:
    DisclaimerDialog(Disclaimer& model, Binder& binder);
};

} // namespace pelrath::desktop
