#include "desktop/bind.hpp"

#include "desktop/bordered_box.hpp"
#include "desktop/elided_label.hpp"
#include "desktop/key_line_edit.hpp"
#include "desktop/window_font.hpp"

#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTimer>

namespace pelrath::desktop {

namespace {

// Keeps a control's notice connected for as long as its widget lives.
class Kept : public QObject {
public:
    Kept(QObject* owner, Connection connection) : QObject(owner), connection_(std::move(connection)) {}

private:
    Connection connection_;
};

QString captionText(const std::string& caption, QChar mnemonic) {
    QString text = toQString(caption);
    text.replace('&', "&&");
    const qsizetype at = mnemonic.isNull() ? -1 : text.indexOf(mnemonic, 0, Qt::CaseInsensitive);
    if (at >= 0) text.insert(at, '&');
    return text;
}

constexpr int waitPause = 50; // milliseconds

void describe(QWidget& view, const QString& whole) {
    view.setToolTip(whole.isEmpty() ? ""
                                    : "<span>" + whole.toHtmlEscaped() + "</span>"); // or it would be markup
    view.setAccessibleDescription(whole);
}

} // namespace

void Binder::pushEnabled(QWidget& view, bool enabled) {
    const bool loses = !enabled && view.hasFocus();
    view.setEnabled(enabled);
    if (loses) {
        disabledInFocus_ = &view;
        focusedInstead_ = QApplication::focusWidget();
    } else if (enabled && disabledInFocus_ == &view) {
        disabledInFocus_ = nullptr;
        if (QApplication::focusWidget() == focusedInstead_) view.setFocus(); // nobody took it meanwhile
    }
}

void Binder::pushCommon(const Control& control, QWidget& view) {
    if (places_ == Places::OfControls) view.setGeometry(screen_.pixels(control.box()));
    pushEnabled(view, control.enabled());
    if (view.isHidden() == control.visible()) view.setVisible(control.visible());
    if (!control.tabStop()) view.setFocusPolicy(Qt::ClickFocus);
    if (!control.accessibleName().empty()) view.setAccessibleName(toQString(control.accessibleName()));
}

void Binder::fit(QWidget& view) {
    if (places_ == Places::OfControls) WindowFont::of(view, refresh_).fit(view);
}

Binding& Binder::attach(Control& control, QWidget& view, std::function<void()> push) {
    auto* binding = new Binding{&view, [this, &control, &view, push = std::move(push)] {
                                    const QSignalBlocker blocked{view};
                                    pushCommon(control, view);
                                    push();
                                }};
    new Kept{binding, control.changed.connect([this, binding] { refresh_.later(*binding); })};
    new Kept{binding, control.focusRequested.connect([this, &view] {
                 refresh_.flush(); // it may have been disabled or hidden until now
                 view.setFocus(Qt::OtherFocusReason);
             })};
    binding->push();
    return *binding;
}

void Binder::bind(Label& label, QLabel& view, QChar mnemonic) {
    attach(label, view, [this, &label, &view, mnemonic] {
        view.setText(captionText(label.caption(), mnemonic));
        fit(view);
        const bool grey = label.textColor() == TextColor::Greyed;
        view.setForegroundRole(grey ? QPalette::PlaceholderText : QPalette::WindowText);
    });
}

void Binder::bind(Label& label, ElidedLabel& view, QChar mnemonic) {
    attach(label, view, [&label, &view, mnemonic] {
        view.showText(toQString(label.caption()),
                      mnemonic.isNull() ? QString{} : captionText(label.caption(), mnemonic));
    });
}

void Binder::bind(CommandButton& button, QPushButton& view, QChar mnemonic) {
    attach(button, view, [this, &button, &view, mnemonic] {
        view.setText(captionText(button.caption(), mnemonic));
        fit(view);
    });
    QObject::connect(&view, &QPushButton::clicked, &view,
                     [this, &button, &view] { refresh_.operate(view, [&button] { button.press(); }); });
}

void Binder::bind(CheckBox& box, QCheckBox& view, QChar mnemonic) {
    attach(box, view, [this, &box, &view, mnemonic] {
        view.setText(captionText(box.caption(), mnemonic));
        fit(view);
        view.setTristate(box.value() == CheckValue::Grey);
        view.setCheckState(box.value() == CheckValue::Grey ? Qt::PartiallyChecked
                           : box.checked()                 ? Qt::Checked
                                                           : Qt::Unchecked);
    });
    QObject::connect(&view, &QCheckBox::clicked, &view, [this, &box, &view](bool checked) {
        refresh_.act(view, [&box, checked] { box.setChecked(checked); });
    });
}

void Binder::bind(OptionButton& option, QRadioButton& view, QButtonGroup& group, QChar mnemonic) {
    group.addButton(&view);
    attach(option, view, [this, &option, &view, &group, mnemonic] {
        view.setText(captionText(option.caption(), mnemonic));
        fit(view);
        group.setExclusive(false); // the model may deselect all
        view.setChecked(option.selected());
        group.setExclusive(true);
        for (QAbstractButton* button : group.buttons()) { // Tab enters a group at its choice
            const bool entry = button->isChecked() || group.checkedButton() == nullptr;
            button->setFocusPolicy(entry ? Qt::StrongFocus : Qt::ClickFocus);
        }
    });
    QObject::connect(&view, &QRadioButton::toggled, &view, [this, &option, &view](bool checked) {
        if (checked) refresh_.act(view, [&option] { option.select(); });
    });
}

void Binder::bind(TextBox& box, QLineEdit& view, SeenEnd seen) {
    Binding& binding = attach(box, view, [&box, &view, seen] {
        view.setReadOnly(box.locked());
        const QString text = toQString(box.text());
        if (view.text() != text) view.setText(text);
        if (seen == SeenEnd::Last) describe(view, text);
        if (box.locked()) {
            view.setCursorPosition(seen == SeenEnd::Last ? static_cast<int>(text.size()) : 0);
            return;
        }
        const int start = unitsOfCharacters(text, box.selectionStart());
        const int end = unitsOfCharacters(text, box.selectionStart() + box.selectionLength());
        view.setCursorPosition(start);
        if (end > start) view.setSelection(start, end - start);
    });
    fit(view);
    const auto selection = [&view](TextBox& to, bool edited) {
        const QString text = view.text();
        const qsizetype at = view.hasSelectedText() ? view.selectionStart() : view.cursorPosition();
        const std::size_t start = charactersBefore(text, at);
        const std::size_t length = charactersBefore(text, at + view.selectedText().size()) - start;
        if (edited) {
            to.edit(toUtf8(text), start, length);
        } else {
            to.adoptSelection(start, length);
        }
    };
    // Typing must find the text as the reactions left it: no waiting for the others.
    new Kept{&binding, box.changed.connect([&box, &binding] {
                 if (!box.locked()) binding.push();
             })};
    QObject::connect(&view, &QLineEdit::textChanged, &view,
                     [this, &box, &view, selection] { refresh_.act(view, [&] { selection(box, true); }); });
    if (auto* keys = dynamic_cast<KeyLineEdit*>(&view)) {
        keys->follow(
            [this, &box, &view, selection](KeyDown& key) {
                refresh_.act(view, [&] {
                    selection(box, false);
                    box.keyDown.emit(key);
                });
            },
            [this, &box, &view](char32_t key) {
                refresh_.act(view, [&box, key] { box.keyPress.emit(key); });
            });
    }
}

void Binder::bind(TextBox& box, QPlainTextEdit& view) {
    attach(box, view, [&box, &view] {
        view.setReadOnly(box.locked());
        // A caret shows where the keyboard is.
        if (box.locked())
            view.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
        QString text = toQString(box.text());
        text.replace("\r\n", "\n");
        if (view.toPlainText() != text) view.setPlainText(text);
    });
}

void Binder::bind(ScrollBar& bar, QScrollBar& view) {
    attach(bar, view, [&bar, &view] {
        view.setRange(bar.minimum(), bar.maximum());
        view.setSingleStep(bar.smallChange());
        view.setPageStep(bar.largeChange());
        view.setValue(bar.value());
    });
    QObject::connect(&view, &QScrollBar::valueChanged, &view, [this, &bar, &view](int value) {
        refresh_.act(view, [&bar, value] { bar.setValue(value); });
    });
}

void Binder::bind(DropDownList& list, QComboBox& view) {
    attach(list, view, [&list, &view] {
        QStringList lines;
        for (const std::string& line : list.lines()) {
            lines << toQString(line);
        }
        QStringList shown;
        for (int row = 0; row < view.count(); ++row) {
            shown << view.itemText(row);
        }
        if (lines != shown) {
            view.clear();
            view.addItems(lines);
        }
        view.setCurrentIndex(list.selectedRow());
    });
    QObject::connect(&view, &QComboBox::activated, &view, [this, &list, &view](int row) {
        refresh_.act(view, [&list, row] { list.select(row); });
    });
}

void Binder::bind(Frame& frame, QGroupBox& view) {
    attach(frame, view, [this, &frame, &view] {
        view.setTitle(captionText(frame.caption(), {}));
        fit(view);
    });
}

void Binder::bind(Frame& frame, QFrame& view) {
    view.setFrameShape(QFrame::StyledPanel);
    attach(frame, view, [] {});
}

void Binder::bind(PictureBox& picture, BorderedBox& view) {
    attach(picture, view, [&picture, &view] { view.setBorder(picture.border()); });
}

void Binder::bind(Timer& timer, QObject& owner) {
    auto* clock = new QTimer{&owner};
    const auto follow = [&timer, clock] {
        if (timer.running()) clock->start(timer.interval());
        if (!timer.running()) clock->stop();
    };
    follow();
    new Kept{clock, timer.changed.connect(follow)};
    QObject::connect(clock, &QTimer::timeout, clock, [this, &timer, clock] {
        // What a tick starts, as the render loop, must not go on inside a dialog or an operation.
        if (refresh_.gate().isIdle()) {
            refresh_.deliver([&timer] { timer.tick.emit(); });
        } else {
            clock->start(waitPause); // the tick is still due
        }
    });
}

} // namespace pelrath::desktop
