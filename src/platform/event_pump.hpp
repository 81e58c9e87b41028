#pragma once

namespace pelrath {

/// The window system's events, delivered from inside a running reaction. Other reactions run nested in
/// these calls, in the second one the close of the program among them.
class EventPump {
public:
    virtual ~EventPump() = default;

    /// Keeps the window painted and sized inside an operation; what the user does meanwhile is dropped. May
    /// be called thousands of times in a row: an implementation may skip a call that follows the last one
    /// closer than a user could notice.
    virtual void processPending() = 0;

    /// Sleeps until there is at least one event, then delivers what is pending, the user's doing as well.
    virtual void waitForEvents() = 0;
};

} // namespace pelrath
