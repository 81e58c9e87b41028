#pragma once

#include <QLabel>

namespace pelrath::desktop {

/// One line of text, shortened in its middle where the place is narrower. The whole is its tool tip and what
/// a screen reader says.
class ElidedLabel : public QLabel {
public:
    explicit ElidedLabel(QWidget* parent);
    /// `marked`: the text with its mnemonic, for a label that leads to another widget.
    void showText(const QString& text, const QString& marked = {});

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void fit();
    QString whole_;
    QString marked_; ///< empty: it has no mnemonic
};

} // namespace pelrath::desktop
