#pragma once

#include "calls/disk.hpp"

#include <functional>
#include <random>

namespace pelrath::calls {

/// A power cut, and what it decided.
struct PowerCut {
    std::size_t behind = 0; ///< so many steps of the log
    Answers answers;
};

/// Power cuts behind each step of a log that leave different folders, in the order of the steps: all that
/// there can be where they are few, and others drawn, up to `count` together.
[[nodiscard]] std::vector<PowerCut> choosePowerCuts(const Log& log, std::size_t count, std::mt19937& random);

/// The folder behind each of the cuts, which are in the order of the steps.
void visitPowerCuts(const Log& log, const std::vector<PowerCut>& cuts,
                    const std::function<void(const PowerCut&, const Inventory&)>& visit);

} // namespace pelrath::calls
