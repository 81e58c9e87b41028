#include "archive/table_places.hpp"

#include <algorithm>

namespace pelrath {

namespace {

struct Range {
    std::int64_t from;
    std::int64_t size;

    [[nodiscard]] bool touches(std::int64_t position, std::size_t length) const {
        return position < from + size && from < position + static_cast<std::int64_t>(length);
    }
};

std::size_t entrySizeOf(const Tables0C& /*layout*/) { return sizeof(records::TextureEntry0C); }
std::size_t entrySizeOf(const TablesCdds& /*layout*/) { return sizeof(records::TextureEntryCdds); }

bool touchesDescriptor(const Range& /*range*/, const PlacedTexture0C& /*has none*/) { return false; }
bool touchesDescriptor(const Range& range, const PlacedTextureCdds& texture) {
    return range.touches(texture.descriptorPosition, sizeof texture.descriptor);
}

bool touches(const Range& /*range*/, const NotAnArchive& /*has none*/) { return false; }

template <class Tables>
bool touches(const Range& range, const Tables& tables) {
    const std::size_t front =
        records::typeWordSize + sizeof tables.header + tables.textures.size() * entrySizeOf(tables);
    return range.touches(0, front) ||
           std::any_of(tables.textures.begin(), tables.textures.end(),
                       [&](const auto& texture) { return touchesDescriptor(range, texture); }) ||
           std::any_of(tables.mipmaps.begin(), tables.mipmaps.end(), [&](const auto& mipmap) {
               return range.touches(mipmap.position, sizeof mipmap.entry);
           });
}

} // namespace

bool touchesTables(const ArchiveContents& contents, std::int64_t offset, std::int64_t size) {
    const Range range{offset, size};
    return std::visit([&](const auto& tables) { return touches(range, tables); }, contents);
}

} // namespace pelrath
