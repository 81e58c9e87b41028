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

/// Fails with InvalidData for a file that cannot be read, is no such DDS file, has a side below 1 or is too
/// short for its sides, and with NotAvailable for a side above `largestSide`.
[[nodiscard]] DdsPicture readDdsPicture(const std::string& path, std::uint32_t largestSide);

} // namespace pelrath
