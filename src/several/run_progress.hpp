#pragma once

#include "batch/report.hpp"
#include "platform/busy_sign.hpp"

#include <mutex>
#include <string>

namespace pelrath::several {

/// What a run tells from its own threads, to be looked at from the window's, and the wish to stop it, which
/// goes the other way.
class RunProgress : public batch::RunWatcher, public BusySign {
public:
    struct State {
        std::string text; ///< what is at work: "Texture 3 of 12: wall.bmp"
        std::size_t done = 0;
        std::size_t total = 0; ///< textures; 0: nobody knows
    };

    void stop();
    [[nodiscard]] State state() const;

    bool stopIsAsked() override;
    void begins(const std::string& texture, std::size_t number, std::size_t count) override;
    void ended(const batch::TextureReport& report) override;
    void show(const std::string& what, std::uint64_t done, std::uint64_t total) override;
    void clear() override {}

private:
    mutable std::mutex mutex_;
    State state_;
    bool stopAsked_ = false;
};

} // namespace pelrath::several
