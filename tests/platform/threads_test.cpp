#include "platform/posix/other_thread.hpp"
#include "support/refusals.hpp"
#include "support/values.hpp"

#include <gtest/gtest.h>

namespace pelrath::test {
namespace {

TEST(OtherThread, DoesWorkThatStartsWorkAndHandsOutWhatItRaises) {
    std::thread::id outside, inside;
    const std::function<void()> inner = [&] { inside = std::this_thread::get_id(); };
    const std::function<void()> outer = [&] {
        outside = std::this_thread::get_id();
        OtherThread::started(inner)->end();
        throw makeError(ErrorNumber::DiskFull, "work");
    };
    EXPECT_EQ(failureOf([&] { OtherThread::started(outer)->end(); }).number(), 61);
    EXPECT_TRUE(inside != outside && outside != std::this_thread::get_id());
    bool ended = false;
    const std::function<void()> slow = [&] {
        std::this_thread::sleep_for(std::chrono::milliseconds{50});
        ended = true;
    };
    { const auto given = OtherThread::started(slow); }
    EXPECT_TRUE(ended) << "what nobody waits for must not outlive what it uses";
}

TEST(OtherThread, LeavesWorkUndoneForWhichThereIsNoThread) {
    std::promise<void> go;
    std::atomic<int> done = 0;
    const std::function<void()> waiting = [&, told = go.get_future().share()] { told.wait(); };
    const std::function<void()> counted = [&] { ++done; };
    std::vector<OtherThread> busy; // with more than rest from work before
    for (int i = 0; i < 20; ++i) {
        busy.push_back(*OtherThread::started(waiting));
    }
    {
        const Refusal refused{Call::NewThread, EAGAIN};
        EXPECT_FALSE(OtherThread::started(counted));
    }
    go.set_value();
    busy.clear();
    OtherThread::started(counted)->end();
    EXPECT_EQ(done, 1) << "a thread that is free later must not do what was given back";
}

} // namespace
} // namespace pelrath::test
