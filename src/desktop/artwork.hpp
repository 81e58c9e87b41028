#pragma once

#include <QIcon>
#include <QWidget>

namespace pelrath::desktop {

/// The program's own pictures, drawn when they are needed.
[[nodiscard]] QIcon programIcon();

/// The picture of the splash panel, made for 512 x 428 pixels.
class SplashArt : public QWidget {
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// The picture of the first-run terms, of any size that is higher than wide.
class DisclaimerArt : public QWidget {
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace pelrath::desktop
