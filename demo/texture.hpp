#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace demo {

struct Level {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> data;
};

// A texture as it lies in an archive.
struct Texture {
    std::string name;   // at most 32 bytes
    std::string fourCC; // four characters, such as DXT1
    int width = 0;
    int height = 0;
    std::vector<Level> levels; // largest first
};

} // namespace demo
