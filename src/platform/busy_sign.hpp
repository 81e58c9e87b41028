#pragma once

#include <cstdint>
#include <string>

namespace pelrath {

/// Shows that a long piece of work goes on, from inside the reaction that does it. Called many times a
/// second. Nothing of the program may run inside these calls: an implementation paints, and drops what the
/// user does.
class BusySign {
public:
    virtual ~BusySign() = default;

    /// `what` is a few words for the user; `done` of `total` bytes are through, 0 of 0 where nobody knows.
    virtual void show(const std::string& what, std::uint64_t done, std::uint64_t total) = 0;
    /// The work is over.
    virtual void clear() = 0;
};

} // namespace pelrath
