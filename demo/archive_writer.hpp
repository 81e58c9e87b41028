#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

#include "texture.hpp"

namespace demo {

enum class Layout {
    Type0C,   // header with type word 12, entries that hold sizes and type
    TypeCdds, // header with the magic "cdds", a descriptor in front of every mipmap table
};

// Writes the archive beside `path` and renames it into place. Level data lies at the same absolute positions
// in either layout. Returns the file size; throws std::runtime_error when the file cannot be written.
std::uint64_t writeArchive(const std::filesystem::path& path, Layout layout,
                           const std::vector<Texture>& textures);

} // namespace demo
