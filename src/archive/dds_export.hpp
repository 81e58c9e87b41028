#pragma once

#include "archive/archive_file.hpp"
#include "archive/catalogue.hpp"
#include "platform/dds_header.hpp"
#include "platform/posix/files.hpp"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// DDS files made from an archive's level data, which is copied unchanged. Textures and levels are given by
/// index; one that the catalogue does not have fails. The archive is opened for each read alone, which is
/// refused where it is not the file that was read (ArchiveRefused), and never written.
namespace pelrath {

class DdsExport {
public:
    /// All belong to the caller and are looked at in each call.
    DdsExport(const CddsArchive& archive, const std::string& archivePath, const ArchiveFile& archiveFile)
        : archive_(archive), archivePath_(archivePath), archiveFile_(archiveFile) {}

    /// The header of a file that holds this one level.
    [[nodiscard]] DdsHeader buildDdsHeader(std::int16_t textureIndex, std::int16_t level) const;

    /// The level's bytes, exactly dataSize. Fails for a level without data, and where the archive cannot be
    /// read.
    [[nodiscard]] std::vector<std::byte> readLevelData(std::int16_t textureIndex, std::int16_t level) const;

    /// Writes header and data of one level: 128 + dataSize bytes. An existing file is replaced whole,
    /// or kept.
    void writeDdsLevelFile(const std::string& path, std::int16_t textureIndex, std::int16_t level,
                           Durability durability = Durability::Flushed,
                           OldFile old = OldFile::Replaced) const;

    /// Writes one file of all levels: level 0's header, made a chain's, and the data of each level in order.
    void writeDdsChainFile(const std::string& path, std::int16_t textureIndex,
                           Durability durability = Durability::Flushed,
                           OldFile old = OldFile::Replaced) const;

    /// How messages name the texture: its name, quoted, and the archive's path.
    [[nodiscard]] std::string describe(std::int16_t textureIndex) const;

    /// The catalogue's own record of a level.
    [[nodiscard]] const MipmapRecord& level(std::int16_t textureIndex, std::int16_t index) const;

private:
    [[nodiscard]] const TextureRecord& texture(std::int16_t index) const;
    /// Fails for a level without data.
    void requireData(const MipmapRecord& level) const;
    [[nodiscard]] InputFile openArchive() const { return archiveFile_.open(archivePath_, archive_); }

    const CddsArchive& archive_;
    const std::string& archivePath_;
    const ArchiveFile& archiveFile_;
};

} // namespace pelrath
