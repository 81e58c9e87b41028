#pragma once

#include <QObject>

namespace pelrath::desktop {

/// A mnemonic acts at once, in every window of the program. The toolkit's own way is a click a tenth of a
/// second later, by when something else may have the user's attention; and a label's would choose the option
/// button that it only leads to.
class Mnemonics : public QObject {
public:
    Mnemonics();

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
};

} // namespace pelrath::desktop
