#include "large_archive.hpp"

#include "archive/reader.hpp"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <random>

/// Writes an archive of so many DXT1 textures with full chains, with noise for their data.
int main(int argc, char* argv[]) {
    using namespace pelrath;
    if (argc != 4) {
        std::cerr << "usage: large-archive FILE TEXTURES SIDE\n";
        return 2;
    }
    const int textures = std::atoi(argv[2]), side = std::atoi(argv[3]);
    int levels = 1;
    while (side >> levels > 0) {
        ++levels;
    }
    bench::LargeArchive{true, textures, levels, side, textures, true}.write(argv[1]);
    std::fstream file{argv[1], std::ios::binary | std::ios::in | std::ios::out};
    std::minstd_rand random;
    const CddsArchive archive = makeCatalogue(readArchive(InputFile{argv[1]}));
    for (const TextureRecord& texture : archive.textures) {
        for (const MipmapRecord& level : texture.mipmaps) {
            std::string bytes(static_cast<std::size_t>(level.dataSize), '\0');
            std::generate(bytes.begin(), bytes.end(), [&random] { return static_cast<char>(random() >> 8); });
            file.seekp(level.dataOffset);
            file << bytes;
        }
    }
    return file.flush() ? 0 : 1;
}
