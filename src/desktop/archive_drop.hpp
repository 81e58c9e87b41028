#pragma once

#include "desktop/refresh.hpp"

#include <QObject>

#include <functional>
#include <string>

class QDropEvent;
class QWidget;

namespace pelrath::desktop {

/// Takes an archive that is dropped anywhere on a window, its text boxes included. What else is dragged over
/// it is refused, or left to those boxes.
class ArchiveDrop : public QObject {
public:
    /// `open` runs as a command of the user's. The window's widgets must be there already.
    ArchiveDrop(QWidget& window, Refresh& refresh, std::function<void(const std::string& path)> open);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] bool take(QDropEvent& event);

    QWidget& window_;
    Refresh& refresh_;
    std::function<void(const std::string& path)> open_;
};

} // namespace pelrath::desktop
