#pragma once

#include <QWidget>

namespace pelrath::desktop {

/// A box with a thin line around an inside of its own, in whose coordinates its children stand.
class BorderedBox : public QWidget {
public:
    explicit BorderedBox(QWidget* parent);

    [[nodiscard]] QWidget& inside() { return *inside_; }
    /// Pixels on each side.
    void setBorder(int pixels);
    /// The line says when this has the focus, which nothing on it could.
    void showFocusOf(QWidget& view);

protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* inside_;
    QWidget* focused_ = nullptr; ///< whose focus is shown
};

} // namespace pelrath::desktop
