#pragma once

#include "desktop/background.hpp"
#include "platform/background_work.hpp"

namespace pelrath::desktop {

class QtBackgroundWork : public BackgroundWork {
public:
    void run(std::function<void()> work, std::function<void()> then) override {
        background_.run([work = std::move(work), then = std::move(then)](const Background::Post& post) {
            work();
            post(then);
        });
    }

private:
    Background background_;
};

} // namespace pelrath::desktop
