#pragma once

#include "desktop/bind.hpp"
#include "editing/save_bar.hpp"

#include <QFrame>

namespace pelrath::desktop {

class ElidedLabel;

/// The strip that says which files were saved. It takes the focus only where the user goes to it, and has no
/// part in the choice of the window's font.
class SaveBarView : public QFrame {
public:
    explicit SaveBarView(QWidget* parent);
    void bindTo(editing::SaveBar& model, Binder& binder);

private:
    void button(CommandButton& model, const QString& name, const QString& caption, Binder& binder);
    void show(const editing::SaveBar& model);

    ElidedLabel* text_;
    QString words_; ///< that are shown; none: it is hidden
};

} // namespace pelrath::desktop
