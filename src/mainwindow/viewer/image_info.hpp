#pragma once

#include "platform/dds_header.hpp"
#include "platform/message_boxes.hpp"

#include <cstdint>
#include <string>

namespace pelrath {

/// What the fixed head of a DDS file says of its picture; all 0 where there was none to read.
struct ImageInfo {
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::uint32_t depth = 0; ///< 0 for a flat texture
    std::uint32_t mipMapCount = 0;
    bool operator==(const ImageInfo&) const = default;
};

/// The header of a file; what would be beyond its end is 0. Fails as InputFile does.
[[nodiscard]] DdsHeader readDdsHeader(const std::string& path);

/// True when a file with the DDS magic is at `path`; `info` is then filled. Reports its failures itself.
/// Checks nothing of the header but the magic.
bool getImageInfo(const std::string& path, ImageInfo& info, MessageBoxes& boxes);

} // namespace pelrath
