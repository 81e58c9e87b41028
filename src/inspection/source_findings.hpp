#pragma once

#include "archive/catalogue.hpp"
#include "imaging/bound_pixels.hpp"
#include "inspection/finding.hpp"
#include "platform/dds_header.hpp"

#include <cstdint>
#include <string>

namespace pelrath::inspection {

/// A file of which the data of levels is taken as it is.
struct TakenFile {
    std::string path;
    std::int16_t level = 0; ///< that it is for, or the first
    bool chain = false;     ///< it is for all
};

/// What a DDS file's header says against taking the data behind it.
void lookAtHeader(const TakenFile& file, const DdsHeader& header, const TextureRecord& texture,
                  std::vector<Finding>& findings);

/// Whether a picture has the sides of the level that it becomes.
void lookAtSides(const std::string& path, Sides sides, const MipmapRecord& level,
                 std::vector<Finding>& findings);

/// Of how many texels alpha says something.
struct Transparency {
    std::uint64_t before = 0; ///< texels that are not solid in the archive
    std::uint64_t after = 0;  ///< the same once the insertion is done
};

/// What becomes of transparency. `source` is the picture's, where one is compressed.
void lookAtAlpha(const Transparency& texels, const AlphaUse* source, const TextureRecord& texture,
                 std::vector<Finding>& findings);

} // namespace pelrath::inspection
