#pragma once

#include "desktop/model_dialog.hpp"
#include "transfer/transfer_controls.hpp"

class QGroupBox;
class QPushButton;

namespace pelrath::desktop {

/// The real dialog of TextureExtractionInsertion. Object names are the controls' names, an index appended
/// where there are several.
class TransferDialog : public ModelDialog {
public:
    TransferDialog(TransferControls& model, Binder& binder);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void buildTexture();
    void buildFileKind();
    void buildMipmaps();
    void buildResolutions();
    void buildOptions();
    void buildDestinations();
    void buildBelow();

    template <class View>
    View& make(const QString& name, QWidget& parent) {
        auto* view = new View{&parent};
        view->setObjectName(name);
        return *view;
    }
    QGroupBox& frame(Frame& model, const QString& name);
    void browse(CommandButton& model, const QString& name, QWidget& parent);

    TransferControls& model_;
    QPushButton* action_ = nullptr;
    Binder& binder_;
};

} // namespace pelrath::desktop
