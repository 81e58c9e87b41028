#pragma once

#include "desktop/model_dialog.hpp"
#include "several/several_textures.hpp"

class QBoxLayout;
class QCheckBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;

namespace pelrath::desktop {

class TextureTable;

/// The real window for several textures. Object names are the controls' names, an index appended where there
/// are several.
class SeveralWindow : public ModelDialog {
public:
    /// `binder` leaves places to layouts.
    SeveralWindow(several::SeveralTextures& model, Binder& binder);

    /// Closing it also stops what runs.

protected:
    /// From the filter, Enter and Down lead to the textures.
    void keyPressEvent(QKeyEvent* event) override;

private:
    QBoxLayout* textures();
    QBoxLayout* plan();
    QGridLayout* choices();
    void addProgress(QBoxLayout& line);
    QBoxLayout* buttons();
    void follow();

    template <class View>
    View& make(const QString& name) {
        auto* view = new View{this};
        view->setObjectName(name);
        return *view;
    }
    QLabel& label(Label& model, const QString& name, QChar mnemonic = {});
    QPushButton& button(CommandButton& model, const QString& name, QChar mnemonic = {});
    QLineEdit& box(TextBox& model, const QString& name);
    QCheckBox& check(CheckBox& model, const QString& name, QChar mnemonic);

    several::SeveralTextures& model_;
    Binder& binder_;
    QLineEdit* filter_ = nullptr;
    TextureTable* table_ = nullptr;
    Connections connections_;
};

} // namespace pelrath::desktop
