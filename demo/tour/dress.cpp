#include "dress.hpp"

#include <QApplication>
#include <QFont>
#include <QPalette>

namespace pelrath::tour {

namespace {

QPalette darkPalette() {
    QPalette palette{QColor{53, 53, 53}, QColor{42, 42, 42}};
    palette.setColor(QPalette::Base, QColor{30, 30, 30});
    palette.setColor(QPalette::Highlight, QColor{42, 110, 180});
    palette.setColor(QPalette::PlaceholderText, QColor{150, 150, 150});
    return palette;
}

QPalette highContrastPalette() {
    QPalette palette{Qt::black, Qt::black};
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::BrightText,
                            QPalette::Mid, QPalette::Light, QPalette::Midlight}) {
        palette.setColor(role, Qt::white);
    }
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, Qt::darkGray);
    }
    palette.setColor(QPalette::Highlight, Qt::yellow);
    palette.setColor(QPalette::HighlightedText, Qt::black);
    return palette;
}

} // namespace

void dress(const QString& theme, double points) {
    if (theme == "dark") QApplication::setPalette(darkPalette());
    if (theme == "high-contrast") QApplication::setPalette(highContrastPalette());
    if (points <= 0) return;
    QFont font = QApplication::font();
    font.setPointSizeF(points);
    QApplication::setFont(font);
}

} // namespace pelrath::tour
