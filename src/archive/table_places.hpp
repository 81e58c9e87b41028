#pragma once

#include "archive/reader.hpp"

#include <cstdint>

namespace pelrath {

/// True where one of the `size` bytes at the absolute position `offset` belongs to the header, a texture's
/// entry or descriptor, or a mipmap entry. Level data never does in an archive that holds water, but the
/// format itself cannot rule it out.
[[nodiscard]] bool touchesTables(const ArchiveContents& contents, std::int64_t offset, std::int64_t size);

} // namespace pelrath
