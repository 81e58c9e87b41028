#include "desktop/line_title.hpp"

#include "desktop/line_delegate.hpp"

#include <QFrame>
#include <QStyle>
#include <QStyleOptionFrame>

namespace pelrath::desktop {

void LineTitle::standOver(const QFrame& list) {
    constexpr int ownMargin = 2; // of every line edit, inside what its style leaves for the text
    QStyleOptionFrame option;
    initStyleOption(&option);
    option.rect.setSize({1000, 100}); // it may have no size yet
    const int own = style()->subElementRect(QStyle::SE_LineEditContents, &option, this).left() + ownMargin;
    setTextMargins(list.frameWidth() + LineDelegate::textInset - own, 0, 0, 0);
}

} // namespace pelrath::desktop
