#pragma once

#include <vector>

#include "canvas.hpp"

namespace demo {

// The number of levels down to 1 x 1.
int fullChain(int width, int height);

// `count` pictures, each half the size of the one before; the first is `base`.
std::vector<Canvas> mipmapChain(Canvas base, int count);

} // namespace demo
