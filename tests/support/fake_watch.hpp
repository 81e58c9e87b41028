#pragma once

#include "platform/background_work.hpp"
#include "platform/file_watch.hpp"

namespace pelrath::test {

/// The test says when something happens.
class CalledWatch : public FileWatch {
public:
    void follow(const std::vector<std::string>& paths) override { followed = paths; }
    std::vector<std::string> followed;
};

/// Done as soon as it is asked for.
class ImmediateWork : public BackgroundWork {
public:
    void run(std::function<void()> work, std::function<void()> then) override {
        work();
        then();
    }
};

} // namespace pelrath::test
