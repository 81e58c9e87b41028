#pragma once

#include "archive/records.hpp"
#include "platform/posix/large_blocks.hpp"

#include <cstdint>
#include <string>
#include <vector>

namespace pelrath {

/// The two layouts of an archive file.
enum class CddsType { Type0C, TypeCdds };

/// One mipmap level of a texture.
struct MipmapRecord {
    records::FourCC fourCC;  ///< the owning texture's bytes; not a text of its own for each of the thousands
    std::int32_t dataOffset; ///< absolute 0-based position of the level's data in the archive
    std::int32_t dataSize;   ///< bytes, never negative; 0: the level has no data
    std::int32_t width;      ///< as stored; nothing has checked it
    std::int32_t height;     ///< as stored; nothing has checked it
    bool operator==(const MipmapRecord&) const = default;
};

struct TextureRecord {
    std::string name;   ///< as stored, without its zero bytes; neither padded nor trimmed
    std::string fourCC; ///< as stored, without its zero bytes, case kept
    std::int32_t mipmapCount = 0;
    std::vector<MipmapRecord> mipmaps; ///< level 0 is the full-size image
    bool operator==(const TextureRecord&) const = default;
};

/// The catalogue of one archive, in file order. At most 32767 textures and 32767 levels in all; every level
/// with a positive size lay inside the file when it was read.
struct CddsArchive {
    CddsType type = CddsType::Type0C;
    std::vector<TextureRecord, LargeBlocks<TextureRecord>> textures;
    std::int16_t totalMipmapCount = 0;
    bool operator==(const CddsArchive&) const = default;
};

/// The largest number of textures, and of levels in all.
inline constexpr std::int32_t largestCount = 32767;

} // namespace pelrath
