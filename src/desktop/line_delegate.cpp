#include "desktop/line_delegate.hpp"

#include "desktop/units.hpp"
#include "desktop/whole_frames.hpp"

#include <QFontMetrics>
#include <QPainter>
#include <QStyleOptionViewItem>

#include <algorithm>

namespace pelrath::desktop {

namespace {

constexpr char32_t firstCombining = 0x300;

bool isPlain(char32_t c) { return c >= 0x20 && c < 0x7F; }

// Nothing to see, or something to see on the neighbour.
bool isShapeless(char32_t c) {
    switch (QChar::category(c)) {
    case QChar::Mark_NonSpacing:
    case QChar::Mark_SpacingCombining:
    case QChar::Mark_Enclosing:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
    case QChar::Other_Control:
    case QChar::Other_Format:
    case QChar::Other_Surrogate:
        return true;
    default:
        return false;
    }
}

// On a whole pixel, as the letters are.
int baselineIn(const QRect& place, const QFontMetrics& metrics) {
    return place.top() + (place.height() - metrics.height()) / 2 + metrics.ascent();
}

// Draws a line from left to right, in the order of its characters.
class LinePen {
public:
    LinePen(QPainter& painter, const QRect& place)
        : painter_(painter), metrics_(painter.font()), column_(metrics_.horizontalAdvance('0')),
          fixed_(isFixedPitch(metrics_)), x_(place.left()),
          baseline_(baselineIn(place, QFontMetrics{painter.font()})) {}

    void draw(const QString& text) {
        if (std::all_of(text.begin(), text.end(), [](QChar c) { return isPlain(c.unicode()); })) {
            painter_.drawText(QPointF{x_, baseline_}, text);
            return;
        }
        QString run; // of characters that have no dealings with each other
        for (const char32_t c : text.toUcs4()) {
            if (c < firstCombining && !isShapeless(c) && metrics_.inFontUcs4(c)) {
                run.append(QChar{static_cast<char16_t>(c)});
                continue;
            }
            drawRun(run);
            run.clear();
            drawAlone(c);
        }
        drawRun(run);
    }

private:
    void drawRun(const QString& run) {
        painter_.drawText(QPointF{x_, baseline_}, run);
        x_ += fixed_ ? column_ * static_cast<double>(run.size()) : metrics_.horizontalAdvance(run);
    }
    // One that the font may lack is made as narrow as the column.
    void drawAlone(char32_t c) {
        if (isShapeless(c)) {
            drawBox();
            return;
        }
        const QString text = QStringView{QChar::fromUcs4(c)}.toString();
        const double width = metrics_.horizontalAdvance(text);
        const double room = fixed_ ? column_ : width;
        painter_.save();
        painter_.translate(x_, baseline_);
        if (width > room) painter_.scale(room / width, 1);
        painter_.drawText(QPointF{}, text);
        painter_.restore();
        x_ += room;
    }
    void drawBox() {
        constexpr double gap = 1;
        const double height = metrics_.capHeight();
        painter_.drawRect(QRectF{x_ + gap, baseline_ - height, column_ - 2 * gap - 1, height - 1});
        x_ += column_;
    }

    QPainter& painter_;
    QFontMetricsF metrics_;
    double column_;
    bool fixed_;
    double x_;
    double baseline_;
};

} // namespace

void LineDelegate::fitTo(int height, const QFont& usual) {
    constexpr double step = 0.25; // points
    constexpr double smallest = 5;
    height_ = height;
    font_ = usual;
    while (QFontMetrics{font_}.height() > height_ && font_.pointSizeF() - step >= smallest) {
        font_.setPointSizeF(font_.pointSizeF() - step);
    }
}

void LineDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    const bool active =
        option.state.testFlag(QStyle::State_Active) && option.state.testFlag(QStyle::State_HasFocus);
    const QPalette::ColorGroup group = !option.state.testFlag(QStyle::State_Enabled) ? QPalette::Disabled
                                       : option.state.testFlag(QStyle::State_Active) ? QPalette::Active
                                                                                     : QPalette::Inactive;
    if (selected) painter->fillRect(option.rect, option.palette.brush(group, QPalette::Highlight));
    painter->setFont(height_ == 0 ? option.font : font_);
    painter->setPen(option.palette.color(group, selected ? QPalette::HighlightedText : QPalette::Text));
    LinePen{*painter, option.rect.adjusted(textInset, 0, 0, 0)}.draw(index.data().toString());
    if (active && !selected) {
        painter->setPen(option.palette.color(group, QPalette::Highlight));
        drawFrame(*painter, option.rect);
    }
}

QSize LineDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& /*index*/) const {
    // The width is never used: a list is as wide as its view, and what is longer is scrolled by it.
    return {1, height_ == 0 ? QFontMetrics{option.font}.height() : height_};
}

} // namespace pelrath::desktop
