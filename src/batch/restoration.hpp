#pragma once

#include "batch/writing.hpp"

#include <stdexcept>
#include <vector>

namespace pelrath::batch {

/// The two archives do not belong together. The text is a sentence without its full stop.
class NoCopy : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Which levels of these textures are not what they are in a copy of the archive, and would be put back.
/// NoCopy where the copy's tables are others, or it is the archive itself.
[[nodiscard]] Plan planRestoration(const Session& session, const Session& copy,
                                   const std::vector<std::int16_t>& textures);

/// Puts back what a plan of planRestoration() with the same copy says.
[[nodiscard]] Report runRestoration(Session& session, const Session& copy, const Plan& plan,
                                    const WritingTerms& terms, RunWatcher& watcher);

} // namespace pelrath::batch
