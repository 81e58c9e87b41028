#pragma once

#include "desktop/inspection_pictures.hpp"
#include "desktop/model_dialog.hpp"
#include "inspection/inspection.hpp"

namespace pelrath::desktop {

/// The real window of Inspection. Object names are the controls' names, an index appended where there are
/// several.
class InspectionWindow : public ModelDialog {
public:
    InspectionWindow(inspection::Inspection& model, Binder& binder);

protected:
    void showEvent(QShowEvent* event) override;

private:
    template <class View>
    View& make(const QString& name) {
        auto* view = new View{this};
        view->setObjectName(name);
        return *view;
    }

    InspectionPictures* pictures_ = nullptr;
};

} // namespace pelrath::desktop
