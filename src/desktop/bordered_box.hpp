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

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* inside_;
};

} // namespace pelrath::desktop
