#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

/// The records of a CDDS archive as they lie in the file: 32-bit little-endian signed numbers without gaps,
/// names and types as zero-padded single-byte characters. Field names are the format's; a field called after
/// its place (long1, dxtL4, ...) has no known meaning and is only ever shown. Every stored offset counts
/// from the position of the field that holds it.
namespace pelrath::records {

using Name = std::array<char, 32>;
using FourCC = std::array<char, 4>;

/// The first four bytes of a file.
inline constexpr std::int32_t typeWord0C = 12;
inline constexpr std::int32_t typeWordCdds = 0x73646463; // the characters "cdds"
inline constexpr std::int32_t typeWordSize = 4;

struct Header0C {
    std::int32_t textureCount, long1, long2, long3, long4;
    bool operator==(const Header0C&) const = default;
};

struct HeaderCdds {
    std::int32_t long1, textureCount, long3, long4, long5, long6, long7;
    bool operator==(const HeaderCdds&) const = default;
};

struct TextureEntry0C {
    Name name;
    std::int32_t height, width;
    FourCC fourCC;
    std::int32_t long1, long2, long3, long4;
    std::int32_t mipmapCount;
    std::int32_t mipmapTableOffset; ///< to the texture's first MipmapEntry
    bool operator==(const TextureEntry0C&) const = default;
};

struct TextureEntryCdds {
    Name name;
    std::int32_t descriptorOffset; ///< to the texture's TextureDescriptor
    std::int32_t long2, long3, long4, long5, long6, long7, long8;
    bool operator==(const TextureEntryCdds&) const = default;
};

/// In front of a texture's mipmap table in the cdds layout.
struct TextureDescriptor {
    std::int32_t height, width;
    FourCC fourCC;
    std::int32_t dxtL4;
    std::int32_t mipmapCount;
    std::int32_t dxtL6, dxtL7, dxtL8, dxtL9, dxtL10;
    bool operator==(const TextureDescriptor&) const = default;
};

struct MipmapEntry {
    std::int32_t dataOffset; ///< to the level's data
    std::int32_t dataSize;   ///< in bytes
    std::int32_t height, width;
    bool operator==(const MipmapEntry&) const = default;
};

static_assert(sizeof(Header0C) == 20);
static_assert(sizeof(HeaderCdds) == 28);
static_assert(sizeof(TextureEntry0C) == 68);
static_assert(sizeof(TextureEntryCdds) == 64);
static_assert(sizeof(TextureDescriptor) == 40);
static_assert(sizeof(MipmapEntry) == 16);

/// Positions of the offset fields inside their entries.
inline constexpr std::int32_t mipmapTableField = offsetof(TextureEntry0C, mipmapTableOffset);
inline constexpr std::int32_t descriptorField = offsetof(TextureEntryCdds, descriptorOffset);

/// Decodes a record from exactly its bytes.
template <class Record>
[[nodiscard]] Record decode(std::span<const std::byte, sizeof(Record)> bytes) {
    static_assert(std::endian::native == std::endian::little, "the records are copied as they lie");
    Record record;
    std::memcpy(&record, bytes.data(), sizeof(Record));
    return record;
}

} // namespace pelrath::records
