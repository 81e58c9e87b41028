#pragma once

namespace pelrath {

/// The window system's events, delivered from inside a running reaction. Reactions of any window run
/// nested in these calls, the close of the program among them.
class EventPump {
public:
    virtual ~EventPump() = default;

    /// Delivers what is pending and returns. May be called thousands of times in a row: an implementation
    /// may skip a call that follows the last one closer than a user could notice.
    virtual void processPending() = 0;

    /// Sleeps until there is at least one event, then delivers what is pending.
    virtual void waitForEvents() = 0;
};

} // namespace pelrath
