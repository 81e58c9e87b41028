#pragma once

#include <algorithm>
#include <array>
#include <atomic>
#include <random>
#include <string>
#include <string_view>

namespace pelrath::monkey {

/// The choices of one turn. They hang on the seed, the hand and the turn's number alone, and not on what the
/// turns before it found.
class Dice {
public:
    Dice(unsigned seed, unsigned hand, unsigned turn) {
        std::seed_seq all{seed, hand, turn};
        random_.seed(all);
    }
    /// 0 where the limit is less.
    [[nodiscard]] int below(int limit) {
        return static_cast<int>(random_() % static_cast<unsigned>(std::max(limit, 1)));
    }
    [[nodiscard]] bool onceIn(int turns) { return below(turns) == 0; }
    /// Not of an empty list.
    [[nodiscard]] auto& oneOf(auto& list) {
        return *(std::begin(list) + below(static_cast<int>(std::size(list))));
    }

private:
    std::mt19937 random_;
};

/// What was done and what happened, counted; and the last acts. Lies in memory that the program under the
/// monkey shares with the hand outside it.
class Board {
public:
    static constexpr std::array<std::string_view, 16> kinds{"run",
                                                            "key",
                                                            "mouse",
                                                            "window",
                                                            "file",
                                                            "event",
                                                            "command",
                                                            "answer",
                                                            "close",
                                                            "reading",
                                                            "extraction",
                                                            "insertion",
                                                            "safe copy",
                                                            "act in an operation",
                                                            "close in an operation",
                                                            "finding"};

    void count(std::string_view kind) { ++counts_.at(indexOf(kind)); }
    [[nodiscard]] int counted(std::string_view kind) const { return counts_.at(indexOf(kind)); }
    void act(std::string_view kind, const std::string& how) {
        count(kind);
        const std::string line = "  " + std::string{kind} + ": " + how + "\n";
        auto& place = acts_.at(next_++ % acts_.size());
        place.fill('\0');
        line.copy(place.data(), place.size() - 1);
    }
    /// Those of this run, the oldest first.
    [[nodiscard]] std::string lastActs() const {
        std::string all;
        for (unsigned i = 0; i < acts_.size(); ++i) {
            all += acts_.at((next_ + i) % acts_.size()).data();
        }
        return all;
    }
    void beginRun() {
        count("run");
        acts_ = {};
    }
    std::atomic<unsigned> beats{0}; ///< of the program's event loops

private:
    static std::size_t indexOf(std::string_view kind) {
        return static_cast<std::size_t>(std::find(kinds.begin(), kinds.end(), kind) - kinds.begin());
    }
    std::array<std::atomic<int>, kinds.size()> counts_{};
    std::array<std::array<char, 100>, 40> acts_{};
    std::atomic<unsigned> next_{0};
};

} // namespace pelrath::monkey
