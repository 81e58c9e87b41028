#pragma once

#include <QKeySequence>
#include <QObject>

#include <functional>
#include <vector>

class QWidget;

namespace pelrath::desktop {

/// Keys that a window has wherever in it the keyboard is: what they mean to its text boxes gives way.
class WindowKeys : public QObject {
public:
    /// The window's widgets must be there already.
    explicit WindowKeys(QWidget& window);

    void add(const QKeySequence& key, std::function<void()> act);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget& window_;
    std::vector<QKeySequence> keys_;
};

} // namespace pelrath::desktop
