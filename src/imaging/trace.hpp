#pragma once

#include <functional>
#include <string>
#include <utility>

namespace pelrath {

/// Where the facade's trace lines go: nowhere, until a sink is put in.
class Trace {
public:
    using Sink = std::function<void(const std::string& line)>;

    /// An empty sink discards again.
    void setSink(Sink sink) { sink_ = std::move(sink); }

    void traceMessage(const std::string& line) const {
        if (sink_) sink_(line);
    }

private:
    Sink sink_;
};

} // namespace pelrath
