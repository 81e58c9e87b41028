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
        slots_->all.push_back(slot);
        return Connection{[slots = std::weak_ptr(slots_), slot] {
            slot->connected = false;
            if (const auto live = slots.lock()) live->drop();
        }};
    }

    void emit(Arguments... arguments) const {
        if (slots_->all.empty()) return;
        const auto slots = slots_; // may outlive this
        const Emission emission{*slots};
        const std::size_t known = slots->all.size();
        for (std::size_t i = 0; i < known; ++i) {
            const Slot& slot = *slots->all[i];
            if (slot.connected) slot.handler(arguments...);
        }
    }

private:
    struct Slot {
        explicit Slot(Handler h) : handler(std::move(h)) {}
        Handler handler;
        bool connected = true;
    };

    struct Slots {
        std::vector<std::shared_ptr<Slot>> all;
        int emissions = 0;
        bool dropped = false;

        /// Forgets who is disconnected; not during an emission, which counts on their places.
        void drop() {
            dropped = emissions > 0;
            if (!dropped) std::erase_if(all, [](const auto& slot) { return !slot->connected; });
        }
    };
    class Emission {
    public:
        explicit Emission(Slots& slots) : slots_(slots) { ++slots_.emissions; }
        ~Emission() {
            if (--slots_.emissions == 0 && slots_.dropped) slots_.drop();
        }
        Emission(const Emission&) = delete;
        Emission& operator=(const Emission&) = delete;

    private:
        Slots& slots_;
    };

    std::shared_ptr<Slots> slots_ = std::make_shared<Slots>();
};

} // namespace pelrath
