#pragma once

#include "controls/control.hpp"
#include "platform/screen.hpp"

#include <QFont>
#include <QRect>

#include <string>
#include <string_view>

class QFontMetricsF;
class QWidget;

namespace pelrath::desktop {

[[nodiscard]] QString toQString(std::string_view text);
[[nodiscard]] std::string toUtf8(const QString& text);

/// Positions in characters and in the UTF-16 units that Qt counts.
[[nodiscard]] std::size_t charactersBefore(const QString& text, qsizetype units);
[[nodiscard]] int unitsOfCharacters(const QString& text, std::size_t characters);

/// As measured: some fixed-pitch fonts are not marked so, for the sake of their wide letters.
[[nodiscard]] bool isFixedPitch(const QFontMetricsF& metrics);

/// The primary screen's measures, and the fixed-pitch font of the listing. Lengths come out as at 96 dots an
/// inch where there are fewer: texts do not shrink as far as places would.
class QtScreen : public Screen {
public:
    QtScreen();

    [[nodiscard]] double twipsPerPixel() const override { return twipsPerPixel_; }
    [[nodiscard]] double left() const override;
    [[nodiscard]] double top() const override;
    [[nodiscard]] double width() const override;
    [[nodiscard]] double height() const override;
    [[nodiscard]] double textWidth(std::string_view text) const override;

    [[nodiscard]] const QFont& fixedFont() const { return fixedFont_; }
    [[nodiscard]] int pixels(double twips) const;
    /// Neighbouring boxes stay neighbours: it is the edges that are rounded.
    [[nodiscard]] QRect pixels(const Box& box) const;
    [[nodiscard]] double twips(int pixels) const { return pixels * twipsPerPixel_; }

private:
    double twipsPerPixel_;
    QFont fixedFont_;
};

} // namespace pelrath::desktop
