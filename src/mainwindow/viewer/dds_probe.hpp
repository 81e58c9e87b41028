#pragma once

#include "platform/message_boxes.hpp"

#include <array>
#include <cstddef>
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

using DdsHead = std::array<std::byte, 128>;

/// The first 128 bytes of a file; those beyond its end are 0. Fails as InputFile does.
[[nodiscard]] DdsHead readDdsHeader(const std::string& path);

/// True when a file with the DDS magic is at `path`; `info` is then filled. Reports its failures itself.
/// Checks nothing of the header but the magic.
bool getImageInfo(const std::string& path, ImageInfo& info, MessageBoxes& boxes);

} // namespace pelrath
