#pragma once

#include "imaging/block_decoder.hpp"
#include "platform/dds_header.hpp"

namespace pelrath {

/// What the header's FourCC names. Raises ImageLibraryError for a header without one, and for any other
/// format.
[[nodiscard]] BlockFormat blockFormatOf(const DdsHeader& header);

} // namespace pelrath
