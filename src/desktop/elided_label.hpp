#pragma once

#include <QLabel>

namespace pelrath::desktop {

/// One line of text, shortened in its middle where the place is narrower. The whole is its tool tip and what
/// a screen reader says.
class ElidedLabel : public QLabel {
public:
    explicit ElidedLabel(QWidget* parent);
    void showText(const QString& text);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void fit();
    QString whole_;
};

} // namespace pelrath::desktop
