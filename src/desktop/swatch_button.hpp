#pragma once

#include <QColor>
#include <QRadioButton>

namespace pelrath::desktop {

/// An option button that is a square of one colour; the chosen one wears a ring.
class SwatchButton : public QRadioButton {
public:
    using QRadioButton::QRadioButton;

    void setColor(const QColor& color);

protected:
    void paintEvent(QPaintEvent* event) override;
    [[nodiscard]] bool hitButton(const QPoint& position) const override { return rect().contains(position); }

private:
    QColor color_;
};

} // namespace pelrath::desktop
