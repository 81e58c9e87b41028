#pragma once

#include "platform/file_watch.hpp"
#include "platform/posix/folder_watch.hpp"

#include <QSocketNotifier>
#include <QTimer>

#include <optional>

namespace pelrath::desktop {

/// Waits for the system's word. Where that need not come, whoever is told looks every two seconds.
class QtFileWatch : public QObject, public FileWatch {
public:
    QtFileWatch();
    void follow(const std::vector<std::string>& paths) override;

private:
    void tell();
    void lookSlowly();

    FolderWatch folders_;
    std::optional<QSocketNotifier> notifier_;
    QTimer slow_;
};

} // namespace pelrath::desktop
