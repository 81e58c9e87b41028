#include "desktop/elided_label.hpp"

#include <QFontMetrics>

namespace pelrath::desktop {

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    setMinimumHeight(fontMetrics().height());
}

void ElidedLabel::showText(const QString& text) {
    whole_ = text;
    setToolTip("<span>" + text.toHtmlEscaped() + "</span>"); // or it would be taken for markup
    setAccessibleName(text);
    setAccessibleDescription(text); // or that would be the markup
    fit();
}

void ElidedLabel::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    fit();
}

void ElidedLabel::fit() { setText(fontMetrics().elidedText(whole_, Qt::ElideMiddle, width())); }

} // namespace pelrath::desktop
