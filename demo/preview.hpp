#pragma once

#include <filesystem>
#include <string>

#include "canvas.hpp"

namespace demo {

// Writes the drawing over a chequered ground as a PPM file and, unless it is opaque, its alpha as a PGM file.
void writePreview(const std::filesystem::path& folder, int index, const std::string& name,
                  const Canvas& picture);

} // namespace demo
