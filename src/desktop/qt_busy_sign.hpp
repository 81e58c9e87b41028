#pragma once

#include "desktop/refresh.hpp"
#include "platform/busy_sign.hpp"

#include <QFrame>
#include <QPointer>

class QLabel;
class QProgressBar;

namespace pelrath::desktop {

/// A panel with a progress bar over the active window. While it is up the window is painted and answers the
/// window manager, and what the user does waits.
class QtBusySign : public BusySign {
public:
    explicit QtBusySign(Refresh& refresh) : refresh_(refresh) {}

    void show(const std::string& what, std::uint64_t done, std::uint64_t total) override;
    void clear() override;

private:
    void open();

    Refresh& refresh_;
    QPointer<QFrame> panel_;
    QLabel* text_ = nullptr;
    QProgressBar* bar_ = nullptr;
};

} // namespace pelrath::desktop
