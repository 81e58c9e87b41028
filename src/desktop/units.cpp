#include "desktop/units.hpp"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <cmath>

namespace pelrath::desktop {

QString toQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string toUtf8(const QString& text) { return text.toStdString(); }

std::size_t charactersBefore(const QString& text, qsizetype units) {
    std::size_t count = 0;
    for (qsizetype i = 0; i < units && i < text.size(); ++i) {
        if (!text[i].isLowSurrogate()) ++count;
    }
    return count;
}

int unitsOfCharacters(const QString& text, std::size_t characters) {
    qsizetype i = 0;
    for (; i < text.size() && characters > 0; --characters) {
        i += text[i].isHighSurrogate() && i + 1 < text.size() ? 2 : 1;
    }
    return static_cast<int>(i);
}

bool isFixedPitch(const QFontMetricsF& metrics) {
    return metrics.horizontalAdvance('i') == metrics.horizontalAdvance('W');
}

namespace {

// A desktop may call a proportional font its fixed-pitch one; columns need a true one.
QFont listingFont() {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    if (!isFixedPitch(QFontMetricsF{font})) {
        font = QFont{"monospace"};
        font.setStyleHint(QFont::Monospace);
        font.setFixedPitch(true);
    }
    font.setPointSize(9);
    font.setStretch(QFont::Unstretched); // whatever the window's own is
    return font;
}

} // namespace

QtScreen::QtScreen()
    : twipsPerPixel_(1440.0 / std::max(96.0, QGuiApplication::primaryScreen()->logicalDotsPerInchX())),
      fixedFont_(listingFont()) {}

double QtScreen::left() const { return twips(QGuiApplication::primaryScreen()->geometry().left()); }

double QtScreen::top() const { return twips(QGuiApplication::primaryScreen()->geometry().top()); }

double QtScreen::width() const { return twips(QGuiApplication::primaryScreen()->geometry().width()); }

double QtScreen::height() const { return twips(QGuiApplication::primaryScreen()->geometry().height()); }

double QtScreen::textWidth(std::string_view text) const {
    return QFontMetricsF{fixedFont_}.horizontalAdvance(toQString(text)) * twipsPerPixel_;
}

int QtScreen::pixels(double twips) const { return static_cast<int>(std::lround(twips / twipsPerPixel_)); }

QRect QtScreen::pixels(const Box& box) const {
    const int left = pixels(box.left);
    const int top = pixels(box.top);
    return {left, top, pixels(box.left + box.width) - left, pixels(box.top + box.height) - top};
}

} // namespace pelrath::desktop
