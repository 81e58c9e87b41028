#pragma once

#include <QAbstractItemDelegate>
#include <QFont>

namespace pelrath::desktop {

/// One line of text, cut at the view's edge, its first character at a fixed place. In a fixed-pitch font
/// every character takes exactly one column, whatever it is: one that has no shape of its own is shown as a
/// box.
class LineDelegate : public QAbstractItemDelegate {
public:
    using QAbstractItemDelegate::QAbstractItemDelegate;

    static constexpr int textInset = 6; ///< pixels from the edge of the lines to their first character

    /// Lines are so many pixels high from now on, and their font made smaller where it would be cut.
    void fitTo(int height, const QFont& usual);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    int height_ = 0; // the font's while 0
    QFont font_;
};

} // namespace pelrath::desktop
