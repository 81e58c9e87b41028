#pragma once

#include "calls/tracee.hpp"

#include <string>
#include <vector>

namespace pelrath::calls {

/// One way in which a call can go wrong.
struct Spoil {
    std::string name; ///< "EIO", "SHORT", ...
    Fate fate;
    bool lasts = false; ///< for every later call of the kind on the same file; a + follows the name
};

/// Every way that the manual pages know of, as far as right arguments leave it. SHORT is a transfer of half
/// the bytes, END one of none. What has been removed or closed is so even where that is told as a failure.
/// Full and broken disks and locks of others last.
[[nodiscard]] std::vector<Spoil> spoilsOf(const Call& call);

[[nodiscard]] bool makesNamelessFile(const Call& call);

/// It has no failure that the caller could see, or none without a fault in the program.
[[nodiscard]] bool cannotFail(int number);

} // namespace pelrath::calls
