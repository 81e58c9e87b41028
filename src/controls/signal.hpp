#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace pelrath {

/// Keeps one handler connected for as long as it lives. Safe to outlive the signal.
class Connection {
public:
    Connection() = default;
    explicit Connection(std::function<void()> disconnect) : disconnect_(std::move(disconnect)) {}
    Connection(Connection&& other) noexcept : disconnect_(std::exchange(other.disconnect_, nullptr)) {}
    Connection& operator=(Connection&& other) noexcept {
        if (this != &other) {
            reset();
            disconnect_ = std::exchange(other.disconnect_, nullptr);
        }
        return *this;
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection() { reset(); }

    void reset() {
        if (auto disconnect = std::exchange(disconnect_, nullptr)) disconnect();
    }

private:
    std::function<void()> disconnect_;
};

using Connections = std::vector<Connection>;

/// Calls its handlers in the order in which they were connected. Emissions nest; a handler may connect or
/// disconnect any handler, itself included. One connected during an emission is first called by the next.
template <class... Arguments>
class Signal {
public:
    using Handler = std::function<void(Arguments...)>;

    Signal() = default;
    Signal(const Signal&) = delete;
    Signal& operator=(const Signal&) = delete;
    ~Signal() = default;

    [[nodiscard]] Connection connect(Handler handler) {
        auto slot = std::make_shared<Slot>(std::move(handler));
        slots_->push_back(slot);
        return Connection{[slots = std::weak_ptr(slots_), slot] {
            slot->connected = false;
            if (const auto live = slots.lock()) std::erase(*live, slot);
        }};
    }

    void emit(Arguments... arguments) const {
        if (slots_->empty()) return;
        const auto called = *slots_;
        for (const auto& slot : called) {
            if (slot->connected) slot->handler(arguments...);
        }
    }

private:
    struct Slot {
        explicit Slot(Handler h) : handler(std::move(h)) {}
        Handler handler;
        bool connected = true;
    };

    std::shared_ptr<std::vector<std::shared_ptr<Slot>>> slots_ =
        std::make_shared<std::vector<std::shared_ptr<Slot>>>();
};

} // namespace pelrath
