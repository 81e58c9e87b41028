#pragma once

#include "imaging/block_decoder.hpp"
#include "imaging/bound_pixels.hpp"
#include "imaging/refusal.hpp"
#include "imaging/save_image_options.hpp"
#include "platform/posix/files.hpp"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace pelrath {

/// True when `file` is all that a saved picture of these sides takes: every row of a BMP or TGA file at the
/// depth that its header gives, every level that a DDS header declares, a JPG file to its end mark.
/// `imageType` is the library's number.
[[nodiscard]] bool isWholeFile(std::int32_t imageType, Sides sides, Bytes file);

/// Makes a whole DDS file of any picture one of these levels, whose blocks are what is left to be filled in.
[[nodiscard]] std::span<std::byte> makeRoomForLevels(BlockFormat format, std::span<const Pixels> levels,
                                                     std::vector<std::byte>& file);

/// Rewrites a whole TGA file of a picture of these sides: what the library leaves to chance is cleared, the
/// rows stand as asked, a valid footer ends it, and the header claims the alpha that 32-bit pixels hold:
/// without the claim, a picture that is clear all over is taken for one without alpha.
void finishTarga(Sides sides, FirstRow firstRow, std::vector<std::byte>& file);

} // namespace pelrath
