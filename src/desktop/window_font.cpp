#include "desktop/window_font.hpp"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QEvent>
#include <QFontInfo>
#include <QFontMetrics>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionButton>
#include <QStyleOptionFrame>

#include <algorithm>
#include <array>

namespace pelrath::desktop {

namespace {

constexpr double step = 0.25;                            // points
constexpr double smallest = 5;                           // points
constexpr std::array stretches{100, 97, 94, 91, 88, 85}; // percent: narrower first, then smaller

constexpr int buttonAir = 6; // pixels beside a button's caption, or up to the next button
constexpr int titleAir = 8;  // pixels that a group box keeps beside its title
constexpr int unlimited = 16000;

QRect partOf(const QWidget& view, QStyle::SubElement part) {
    QStyleOptionButton option;
    option.initFrom(&view);
    return view.style()->subElementRect(part, &option, &view);
}

QRect lineOf(const QLineEdit& view) {
    QStyleOptionFrame option;
    option.initFrom(&view);
    option.lineWidth = view.hasFrame() ? view.style()->pixelMetric(QStyle::PM_DefaultFrameWidth) : 0;
    return view.style()->subElementRect(QStyle::SE_LineEditContents, &option, &view);
}

// A text and the pixels that it may take.
struct Caption {
    QString text;
    QSize room;
    int flags = Qt::TextSingleLine | Qt::TextShowMnemonic;
};

Caption captionOf(const QWidget& view) {
    if (const auto* label = qobject_cast<const QLabel*>(&view)) {
        const int flags = Qt::TextShowMnemonic | (label->wordWrap() ? Qt::TextWordWrap : Qt::TextSingleLine);
        return {label->text(), label->contentsRect().size(), flags};
    }
    if (const auto* line = qobject_cast<const QLineEdit*>(&view)) {
        return {"\u00C9g", {unlimited, lineOf(*line).height()}}; // what is longer scrolls
    }
    if (const auto* box = qobject_cast<const QGroupBox*>(&view)) {
        return {box->title(), {box->width() - 2 * titleAir, unlimited}};
    }
    const auto* button = qobject_cast<const QAbstractButton*>(&view);
    if (button == nullptr) return {};
    const bool push = qobject_cast<const QPushButton*>(button) != nullptr;
    const bool check = qobject_cast<const QCheckBox*>(button) != nullptr;
    const QStyle::SubElement part = push    ? QStyle::SE_PushButtonContents
                                    : check ? QStyle::SE_CheckBoxContents
                                            : QStyle::SE_RadioButtonContents;
    const QSize room = partOf(view, part).size();
    return {button->text(), room - QSize{buttonAir, 0}};
}

bool fits(const Caption& caption, const QFontMetrics& font) {
    const QRect place{0, 0, caption.room.width(), unlimited};
    const QSize needed = (caption.flags & Qt::TextWordWrap) != 0
                             ? font.boundingRect(place, caption.flags, caption.text).size()
                             : font.size(caption.flags, caption.text);
    return needed.width() <= caption.room.width() && needed.height() <= caption.room.height();
}

} // namespace

WindowFont& WindowFont::of(const QWidget& view, Refresh& refresh) {
    QWidget& window = *view.window();
    for (QObject* child : window.children()) {
        if (auto* font = dynamic_cast<WindowFont*>(child)) return *font;
    }
    return *new WindowFont{window, refresh};
}

WindowFont::WindowFont(QWidget& window, Refresh& refresh)
    : QObject(&window), window_(window), refresh_(refresh),
      choosing_(new Binding{this, [this] { choose(); }}) {
    window.installEventFilter(this);
}

void WindowFont::fit(QWidget& view) {
    if (std::find(views_.begin(), views_.end(), &view) == views_.end()) views_.emplace_back(&view);
    refresh_.later(*choosing_);
}

bool WindowFont::eventFilter(QObject* window, QEvent* event) {
    if (event->type() == QEvent::ApplicationFontChange) refresh_.later(*choosing_);
    return QObject::eventFilter(window, event);
}

void WindowFont::choose() {
    const QFont usual = QApplication::font();
    QFont font = usual;
    const auto tried = [&font, this](double size) {
        font.setPointSizeF(size);
        return std::any_of(stretches.begin(), stretches.end(), [&font, this](int stretch) {
            font.setStretch(stretch);
            return holds(font);
        });
    };
    double size = usual.pointSizeF() > 0 ? usual.pointSizeF() : QFontInfo{usual}.pointSizeF();
    while (!tried(size) && size - step >= smallest) {
        size -= step;
    }
    window_.setFont(font);
}

bool WindowFont::holds(const QFont& font) {
    const QFontMetrics metrics{font};
    const auto tooNarrow =
        std::find_if(views_.begin(), views_.end(), [&metrics](const QPointer<QWidget>& view) {
            if (view.isNull() || view->testAttribute(Qt::WA_SetFont) || view->size().isEmpty()) return false;
            const Caption caption = captionOf(*view);
            return !caption.text.isEmpty() && !fits(caption, metrics);
        });
    if (tooNarrow == views_.end()) return true;
    std::rotate(views_.begin(), tooNarrow, tooNarrow + 1); // the next font is most likely too wide there, too
    return false;
}

} // namespace pelrath::desktop
