#pragma once

#include "archive/catalogue.hpp"
#include "archive/records.hpp"
#include "platform/posix/files.hpp"
#include "platform/posix/large_blocks.hpp"

#include <cstdint>
#include <stdexcept>
#include <string>
#include <variant>
#include <vector>

namespace pelrath {

/// The file is an archive of a known layout, but says something impossible. The text names the texture or
/// field at fault and where it lies.
class DamagedArchive : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A mipmap entry and the absolute position at which it lies.
struct PlacedMipmapEntry {
    std::int32_t position;
    records::MipmapEntry entry;
    bool operator==(const PlacedMipmapEntry&) const = default;
};

/// A texture's own records and the absolute positions of what its entry points to.
struct PlacedTexture0C {
    records::TextureEntry0C entry;
    std::int32_t fieldPosition; ///< of mipmapTableOffset
    std::int32_t tablePosition; ///< of the first mipmap entry
    bool operator==(const PlacedTexture0C&) const = default;
};
struct PlacedTextureCdds {
    records::TextureEntryCdds entry;
    records::TextureDescriptor descriptor;
    std::int32_t fieldPosition; ///< of descriptorOffset
    std::int32_t descriptorPosition;
    bool operator==(const PlacedTextureCdds&) const = default;
};

/// Everything that the file says about its textures. The mipmap entries of all textures stand one after
/// another, in texture order.
template <class Header, class Texture>
struct ArchiveTables {
    Header header;
    std::vector<Texture, LargeBlocks<Texture>> textures;
    std::vector<PlacedMipmapEntry> mipmaps;
    bool operator==(const ArchiveTables&) const = default;
};
using Tables0C = ArchiveTables<records::Header0C, PlacedTexture0C>;
using TablesCdds = ArchiveTables<records::HeaderCdds, PlacedTextureCdds>;

struct NotAnArchive {
    bool operator==(const NotAnArchive&) const = default;
};

using ArchiveContents = std::variant<NotAnArchive, Tables0C, TablesCdds>;

/// Reads all tables of the file and checks them: counts, every record and every level inside the
/// file, absolute positions within 31 bits, no negative size. Memory stays within a small multiple of what
/// the file really holds, whatever its counts say.
/// NotAnArchive: its first four bytes are neither layout's. Throws DamagedArchive, also for a file of less
/// than four bytes, and RuntimeError when the file cannot be read.
[[nodiscard]] ArchiveContents readArchive(const InputFile& file);

/// The catalogue that the tables describe; an empty one where there are none.
[[nodiscard]] CddsArchive makeCatalogue(const ArchiveContents& contents);
[[nodiscard]] CddsArchive makeCatalogue(const Tables0C& tables);
[[nodiscard]] CddsArchive makeCatalogue(const TablesCdds& tables);

/// What the two layouts keep in different places.
[[nodiscard]] inline std::int32_t mipmapCountOf(const PlacedTexture0C& texture) {
    return texture.entry.mipmapCount;
}
[[nodiscard]] inline std::int32_t mipmapCountOf(const PlacedTextureCdds& texture) {
    return texture.descriptor.mipmapCount;
}

} // namespace pelrath
