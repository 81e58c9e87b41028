#pragma once

#include "imaging/refusal.hpp"
#include "platform/files.hpp"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace pelrath {

/// True when `file` is all that a saved picture of these sides takes: every row of a BMP or TGA file at the
/// depth that its header gives, every level that a DDS header declares, a JPG file to its end mark.
/// `imageType` is the library's number.
[[nodiscard]] bool isWholeFile(std::int32_t imageType, Sides sides, Bytes file);

/// A whole DDS file of a picture of these sides with its level 0 alone.
[[nodiscard]] std::vector<std::byte> withoutChain(Sides sides, Bytes file);

} // namespace pelrath
