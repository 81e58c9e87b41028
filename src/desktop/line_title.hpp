#pragma once

#include <QLineEdit>

class QFrame;

namespace pelrath::desktop {

/// The title over a list of lines that begins as far left: its first character stands exactly over theirs.
class LineTitle : public QLineEdit {
public:
    using QLineEdit::QLineEdit;

    void standOver(const QFrame& list);
};

} // namespace pelrath::desktop
