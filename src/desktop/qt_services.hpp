#pragma once

#include "desktop/refresh.hpp"
#include "platform/event_pump.hpp"
#include "platform/file_open_dialog.hpp"
#include "platform/message_boxes.hpp"

#include <QElapsedTimer>

namespace pelrath::desktop {

/// Message boxes over the active window.
class QtMessageBoxes : public MessageBoxes {
public:
    explicit QtMessageBoxes(Refresh& refresh) : refresh_(refresh) {}
    BoxAnswer show(const std::string& text, const std::string& title, BoxIcon icon,
                   BoxButtons buttons) override;

private:
    Refresh& refresh_;
};

class QtFileOpenDialog : public FileOpenDialog {
public:
    explicit QtFileOpenDialog(Refresh& refresh) : refresh_(refresh) {}
    std::optional<std::string> choose(const Request& request) override;

private:
    Refresh& refresh_;
};

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
