#pragma once

#include "platform/posix/file_handle.hpp"

namespace pelrath {

/// The system's requests to end the program (SIGTERM, SIGINT, SIGHUP), turned into something that an event
/// loop can wait for. And a write beyond the limit of file sizes fails like any other instead of killing the
/// program. One at a time in a process. Programs that are started have none of this.
class EndSignals {
public:
    /// Fails where the system gives no pipe.
    EndSignals();
    ~EndSignals();
    EndSignals(const EndSignals&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;

    /// Readable once the end was asked for.
    [[nodiscard]] int handle() const { return reading_.get(); }
    /// The same without a wait.
    [[nodiscard]] bool asked() const;
    /// Until it is asked for again.
    void taken() const;

private:
    FileHandle reading_;
    FileHandle writing_;
};

} // namespace pelrath
