#include "batch/console/list.hpp"

#include "platform/text.hpp"

#include <nlohmann/json.hpp>

#include <iomanip>
#include <ostream>

namespace pelrath::batch {

namespace {

std::string sidesOf(const MipmapRecord& level) {
    return std::to_string(level.width) + "x" + std::to_string(level.height);
}

nlohmann::ordered_json levelsOf(const TextureRecord& texture) {
    auto levels = nlohmann::ordered_json::array();
    for (const MipmapRecord& level : texture.mipmaps) {
        levels.push_back({{"width", level.width},
                          {"height", level.height},
                          {"offset", level.dataOffset},
                          {"bytes", level.dataSize}});
    }
    return levels;
}

} // namespace

void listAsTable(const CddsArchive& archive, std::ostream& out) {
    std::size_t number = 0;
    for (const TextureRecord& texture : archive.textures) {
        std::int64_t bytes = 0;
        for (const MipmapRecord& level : texture.mipmaps) {
            bytes += level.dataSize;
        }
        const std::string sides = texture.mipmaps.empty() ? "-" : sidesOf(texture.mipmaps.front());
        std::string type;
        appendPadded(type, visibleText(texture.fourCC), 4);
        out << std::setw(5) << ++number << ' ' << std::setw(11) << sides << ' ' << type << ' ' << std::setw(2)
            << texture.mipmaps.size() << ' ' << std::setw(10) << bytes << "  " << visibleText(texture.name)
            << '\n';
    }
}

void listAsJson(const CddsArchive& archive, const std::string& path, std::ostream& out) {
    nlohmann::ordered_json list{{"archive", path},
                                {"layout", archive.type == CddsType::Type0C ? "0C" : "cdds"},
                                {"textures", nlohmann::ordered_json::array()}};
    for (const TextureRecord& texture : archive.textures) {
        list["textures"].push_back(
            {{"name", texture.name}, {"type", texture.fourCC}, {"levels", levelsOf(texture)}});
    }
    // A path can hold what is no text.
    out << list.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) << '\n';
}

} // namespace pelrath::batch
