#include "desktop/elided_label.hpp"

#include <QEvent>
#include <QFontMetrics>

namespace pelrath::desktop {

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    setMinimumHeight(fontMetrics().height());
}

void ElidedLabel::showText(const QString& text, const QString& marked) {
    whole_ = text;
    marked_ = marked;
    setToolTip("<span>" + text.toHtmlEscaped() + "</span>"); // or it would be taken for markup
    setAccessibleName(text);
    setAccessibleDescription(text); // or that would be the markup
    fit();
}

void ElidedLabel::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    fit();
}

void ElidedLabel::changeEvent(QEvent* event) {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange) fit();
}

void ElidedLabel::fit() {
    const bool plain = marked_.isEmpty();
    setText(fontMetrics().elidedText(plain ? whole_ : marked_, Qt::ElideMiddle, width(),
                                     plain ? 0 : Qt::TextShowMnemonic));
}

} // namespace pelrath::desktop
