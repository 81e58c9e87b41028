#include <exception>
#include <filesystem>
#include <iostream>
#include <optional>
#include <string_view>
#include <utility>

#include "archive_writer.hpp"
#include "catalogue.hpp"
#include "mipmaps.hpp"
#include "preview.hpp"

namespace {

namespace fs = std::filesystem;

struct Options {
    fs::path folder;
    std::optional<fs::path> preview;
};

std::optional<Options> parse(int count, char** arguments) {
    Options options;
    for (int i = 1; i < count; ++i) {
        const std::string_view argument = arguments[i];
        if (argument == "--preview" && i + 1 < count) {
            options.preview = arguments[++i];
        } else if (argument.starts_with("-") || !options.folder.empty()) {
            return std::nullopt;
        } else {
            options.folder = argument;
        }
    }
    if (options.folder.empty()) return std::nullopt;
    return options;
}

demo::Texture makeTexture(const demo::TextureRow& row, demo::Canvas picture) {
    demo::Texture texture{row.name, row.fourCC, row.width, row.height, {}};
    const int levels = row.levels > 0 ? row.levels : demo::fullChain(row.width, row.height);
    for (const demo::Canvas& level : demo::mipmapChain(std::move(picture), levels)) {
        texture.levels.push_back(demo::encodeLevel(level, demo::encodingOf(row)));
    }
    return texture;
}

std::vector<demo::Texture> makeTextures(const Options& options) {
    std::vector<demo::Texture> textures;
    for (const demo::TextureRow& row : demo::textureRows()) {
        demo::Canvas picture(row.width, row.height, row.ground);
        row.draw(picture);
        picture.setClip(nullptr);
        if (options.preview) {
            demo::writePreview(*options.preview, static_cast<int>(textures.size()), row.name, picture);
        }
        textures.push_back(makeTexture(row, std::move(picture)));
    }
    return textures;
}

void run(const Options& options) {
    fs::create_directories(options.folder);
    if (options.preview) fs::create_directories(*options.preview);
    const std::vector<demo::Texture> textures = makeTextures(options);
    for (const auto& [file, layout] : {std::pair{"demo-0c.cdds", demo::Layout::Type0C},
                                       std::pair{"demo-cdds.cdds", demo::Layout::TypeCdds}}) {
        const fs::path path = options.folder / file;
        const auto size = demo::writeArchive(path, layout, textures);
        std::cout << path.string() << ": " << textures.size() << " textures, " << size << " bytes\n";
    }
}

} // namespace

int main(int count, char** arguments) {
    const std::optional<Options> options = parse(count, arguments);
    if (!options) {
        std::cerr << "usage: pelrath-demo-archives FOLDER [--preview FOLDER]\n";
        return 2;
    }
    try {
        run(*options);
    } catch (const std::exception& error) {
        std::cerr << "pelrath-demo-archives: " << error.what() << '\n';
        return 1;
    }
    return 0;
}
