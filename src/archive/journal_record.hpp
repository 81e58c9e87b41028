#pragma once

#include "archive/catalogue.hpp"
#include "platform/posix/file_identity.hpp"
#include "platform/posix/file_mode.hpp"
#include "platform/posix/files.hpp"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace pelrath {

/// New bytes of one level.
struct LevelBytes {
    std::int64_t dataOffset; ///< absolute 0-based position in the archive
    std::vector<std::byte> data;
    bool operator==(const LevelBytes&) const = default;
};

/// What an insertion is about to do to an archive: enough to do it again from any point on.
struct JournalRecord {
    std::string archivePath;
    std::string textureName;
    FileIdentity archive;           ///< before the first write
    std::uint32_t tables = 0;       ///< tablesChecksum() of its catalogue
    FileMode mode = 0;              ///< the permissions that it has before and is to have afterwards
    std::vector<LevelBytes> levels; ///< none: nothing is to be written, only the permissions have changed
    std::vector<LevelBytes> old;    ///< the same places before the first write
    bool operator==(const JournalRecord&) const = default;
};

/// The same for two catalogues whose textures and levels have the same names, types, sizes and places.
[[nodiscard]] std::uint32_t tablesChecksum(const CddsArchive& catalogue);

[[nodiscard]] std::uint32_t pathChecksum(const std::string& path);

/// The record as it stands in a file: the eight letters "PELRATHJ", the format's number, the length of it all
/// and the CRC-32 of these three, which tell a record without its end from a damaged one; then the fields in
/// the order above, each number in 32 or 64 bits, little-endian, each text and block behind its length (old
/// bytes behind the new ones of their level, whose place and length are theirs), and at the end the CRC-32 of
/// all before it.
[[nodiscard]] std::vector<std::byte> encodeJournal(const JournalRecord& record);

/// How much of a record's beginning says its length, in bytes, and that length, the beginning among it;
/// nothing where that is no beginning of a record of this format.
inline constexpr std::size_t journalStartSize = 24;
[[nodiscard]] std::optional<std::uint64_t> journalSize(Bytes start);

/// Nothing where the bytes are no whole record, or of another format.
[[nodiscard]] std::optional<JournalRecord> decodeJournal(Bytes bytes);

/// True where such bytes are the beginning of a record whose end is missing, and not one that was damaged
/// later.
[[nodiscard]] bool isCutShort(Bytes bytes);

} // namespace pelrath
