#pragma once

#include "mainwindow/viewer/device.hpp"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace pelrath {

/// The top level of a DDS file in DXT1 or DXT5.
struct DdsPicture {
    PixelFormat format = PixelFormat::Dxt1;
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::vector<std::byte> blocks; ///< exactly what the sides need: 8 or 16 bytes for each 4 x 4 texels
};

/// Fails with InvalidData for a file that is no such DDS file or too short for its sides, with NotAvailable
/// for a side of 0 or above `largestSide`, and as InputFile does.
[[nodiscard]] DdsPicture readDdsPicture(const std::string& path, std::uint32_t largestSide);

} // namespace pelrath
