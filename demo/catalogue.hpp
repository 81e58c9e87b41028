#pragma once

#include "painters.hpp"

#include <vector>

namespace pelrath::demo {

struct Texture {
    const char* name; ///< as it stands in an archive, Windows-1252
    int width, height;
    const char* type; ///< DXT1, DXT5 or ARGB, which holds the texels as they are
    int levels;       ///< 0: down to one texel
    Painter paint;
    unsigned ground = 0; ///< the colour of clear texels, and below all that can be seen through
};

/// In the order of the archives.
const std::vector<Texture>& catalogue();

} // namespace pelrath::demo
