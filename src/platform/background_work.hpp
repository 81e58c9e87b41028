#pragma once

#include <functional>

namespace pelrath {

/// Work that may take its time, as on a folder that does not answer.
class BackgroundWork {
public:
    virtual ~BackgroundWork() = default;

    /// Runs `work`, which must raise nothing, on a thread of its own and then, from the event loop, `then` on
    /// this one, whatever else goes on here; never after this object's end.
    virtual void run(std::function<void()> work, std::function<void()> then) = 0;
};

} // namespace pelrath
