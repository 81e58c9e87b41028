#pragma once

#include "canvas.hpp"
#include "texture.hpp"

namespace demo {

enum class Encoding {
    Dxt1, // texels below half alpha become transparent
    Dxt5,
    Argb, // uncompressed, the bytes of a texel being blue, green, red, alpha
};

Level encodeLevel(const Canvas& picture, Encoding encoding);

} // namespace demo
