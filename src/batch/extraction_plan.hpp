#pragma once

#include "batch/plan.hpp"
#include "session/session.hpp"

#include <string>
#include <vector>

namespace pelrath::batch {

/// Which levels of a texture are extracted: the largest, each into a file of its own, or all into one.
enum class Levels { Largest, All, Chain };

struct ExtractionWish {
    std::string folder;  ///< where the files go
    bool images = false; ///< the image kind of each texture's own type; otherwise DDS files
    Levels levels = Levels::Largest;
    bool overwrite = false; ///< files that are there are replaced; otherwise they are refused
};

/// What an extraction of these textures of the session's archive would write. No two files of a plan have one
/// name. `images` with `Chain` is refused for each texture.
[[nodiscard]] Plan planExtraction(const Session& session, const std::vector<std::int16_t>& textures,
                                  const ExtractionWish& wish);

} // namespace pelrath::batch
