#pragma once

#include "desktop/refresh.hpp"
#include "platform/busy_sign.hpp"
#include "platform/event_pump.hpp"
#include "platform/file_open_dialog.hpp"
#include "platform/message_boxes.hpp"

#include <QElapsedTimer>

namespace pelrath::desktop {

/// Message boxes over the active window, on which no sign of work stays.
class QtMessageBoxes : public MessageBoxes {
public:
    QtMessageBoxes(Refresh& refresh, BusySign& busy) : refresh_(refresh), busy_(busy) {}
    BoxAnswer show(const std::string& text, const std::string& title, BoxIcon icon,
                   BoxButtons buttons) override;

private:
    Refresh& refresh_;
    BusySign& busy_;
};

class QtFileOpenDialog : public FileOpenDialog {
public:
    explicit QtFileOpenDialog(Refresh& refresh) : refresh_(refresh) {}
    std::optional<std::string> choose(const Request& request) override;

private:
    Refresh& refresh_;
};

/// The system's dialog for a file to be written: its path; nothing when the user cancels. It asks before a
/// file that is there is taken.
[[nodiscard]] std::optional<std::string> askWhereToSave(Refresh& refresh, const std::string& title,
                                                        const std::string& suggestion);

class QtEventPump : public EventPump {
public:
    explicit QtEventPump(Refresh& refresh) : refresh_(refresh) { sinceLast_.start(); }

    /// At most every twentieth of a second: more often cannot be seen, and each time paints the window.
    void processPending() override;
    void waitForEvents() override;

private:
    Refresh& refresh_;
    QElapsedTimer sinceLast_;
};

} // namespace pelrath::desktop
