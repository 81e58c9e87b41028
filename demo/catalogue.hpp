#pragma once

#include <functional>
#include <string>
#include <vector>

#include "canvas.hpp"
#include "compress.hpp"

namespace demo {

struct TextureRow {
    std::string name;
    const char* fourCC;
    int width;
    int height;
    int levels;   // 0: down to 1 x 1
    Color ground; // the canvas before drawing; its colour also lies under invisible texels
    std::function<void(Canvas&)> draw;
};

Encoding encodingOf(const TextureRow& row);

// All textures in the order in which they lie in the archives.
std::vector<TextureRow> textureRows();

} // namespace demo
