#pragma once

#include "controls/check_box.hpp"
#include "controls/control.hpp"
#include "controls/drop_down_list.hpp"
#include "controls/option_group.hpp"
#include "controls/scroll_bar.hpp"
#include "controls/text_box.hpp"
#include "controls/timer.hpp"
#include "desktop/refresh.hpp"
#include "desktop/units.hpp"

#include <QPointer>
#include <QWidget>

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QFrame;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class QScrollBar;

namespace pelrath::desktop {

class BorderedBox;
class ElidedLabel;

/// Which end of a text that cannot be typed into is seen where its place is too narrow for the whole.
enum class SeenEnd { First, Last };

/// Who says where a window's widgets are and how large: the controls, or a layout of the face's.
enum class Places { OfControls, OfLayout };

/// Binds controls to widgets, each kind by one function: the control's whole state is pushed once, then
/// again after every notice of its; what the user does to the widget reaches the control. A bound widget
/// must not outlive its control.
class Binder {
public:
    Binder(Refresh& refresh, const QtScreen& screen, Places places = Places::OfControls)
        : refresh_(refresh), screen_(screen), places_(places) {}

    void bind(Label& label, QLabel& view, QChar mnemonic = {});
    /// Whose text may be of any length: the window's font does not go by it.
    void bind(Label& label, ElidedLabel& view, QChar mnemonic = {});
    void bind(CommandButton& button, QPushButton& view, QChar mnemonic = {});
    void bind(CheckBox& box, QCheckBox& view, QChar mnemonic = {});
    void bind(OptionButton& option, QRadioButton& view, QButtonGroup& group, QChar mnemonic = {});
    /// Of a text that shows its last end, a path, the whole is the tool tip and what a screen reader adds.
    void bind(TextBox& box, QLineEdit& view, SeenEnd end = SeenEnd::First);
    void bind(TextBox& box, QPlainTextEdit& view);
    void bind(ScrollBar& bar, QScrollBar& view);
    void bind(DropDownList& list, QComboBox& view);
    void bind(Frame& frame, QFrame& view);
    void bind(Frame& frame, QGroupBox& view);
    void bind(PictureBox& picture, BorderedBox& view);
    void bind(Timer& timer, QObject& owner);

    /// For a kind of widget with a function of its own elsewhere: keeps what every control has, and runs
    /// `push` after it.
    Binding& attach(Control& control, QWidget& view, std::function<void()> push);

    [[nodiscard]] Refresh& refresh() { return refresh_; }
    [[nodiscard]] const QtScreen& screen() const { return screen_; }

private:
    void pushCommon(const Control& control, QWidget& view);
    /// A widget that is disabled while it has the focus gets it back when it is enabled again.
    void pushEnabled(QWidget& view, bool enabled);
    /// The window's font is to hold what the view shows.
    void fit(QWidget& view);

    Refresh& refresh_;
    const QtScreen& screen_;
    Places places_;
    QPointer<QWidget> disabledInFocus_;
    QPointer<QWidget> focusedInstead_;
};

} // namespace pelrath::desktop
