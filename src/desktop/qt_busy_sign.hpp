#pragma once

#include "platform/busy_sign.hpp"

#include <QElapsedTimer>
#include <QFrame>
#include <QPointer>

class QLabel;
class QProgressBar;

namespace pelrath::desktop {

/// A panel with a progress bar over the active window, for the time of a reaction. While it is up the window
/// is painted and answers the window manager; what the user does is dropped.
class QtBusySign : public BusySign {
public:
    void show(const std::string& what, std::uint64_t done, std::uint64_t total) override;
    void clear() override;

private:
    void open();

    QElapsedTimer since_; ///< the work's beginning
    QPointer<QFrame> panel_;
    QLabel* text_ = nullptr;
    QProgressBar* bar_ = nullptr;
};

} // namespace pelrath::desktop
