#pragma once

#include "archive/dds_export.hpp"
#include "transfer/held_archive.hpp"

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

namespace pelrath {

/// Where a DDS file's level data begins, as readFileBytes() counts.
inline constexpr std::int64_t firstLevelPosition = ddsHeaderSize + 1;

/// A file ends before the level data that is to be read from it.
class SourceTooShort : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// `size` bytes from the 1-based `position` of a file, which is opened for this one read. SourceTooShort
/// where it does not have them.
[[nodiscard]] std::vector<std::byte> readFileBytes(const std::string& path, std::int64_t position,
                                                   std::int64_t size);

/// Writes the bytes over those at the 1-based `position` of the archive, as HeldArchive::overwrite() does.
/// Never changes the archive's length.
void writeArchiveBytes(HeldArchive& archive, std::int64_t position, const std::vector<std::byte>& bytes);

/// Copies level data from DDS files over that of the archive, for one insertion. Every byte is read
/// and held before the first one is written. Levels are given by index, a texture by its index too.
class LevelWriter {
public:
    explicit LevelWriter(HeldArchive& archive) : archive_(archive) {}

    static constexpr std::int16_t everyLevel = -1;

    /// Reads the data of the selected level, or of every one, and holds it. With `chained` the file has the
    /// levels one behind another, otherwise the selected one's data alone. Of every level, those without data
    /// are left out; selected, such a level fails.
    void readMipmapLevels(const std::string& sourcePath, std::int16_t textureIndex, bool chained,
                          std::int16_t selectedLevel);

    /// Writes what is held, in the order in which it was read, and answers written(). ArchiveRefused,
    /// before the first write, where the archive is no longer the file that was read or a level's place is
    /// not its own.
    std::int16_t writeHeldLevels();

    /// Both: copies the levels and answers how many were written.
    std::int16_t writeMipmapLevels(const std::string& sourcePath, std::int16_t textureIndex, bool chained,
                                   std::int16_t selectedLevel);

    [[nodiscard]] std::int16_t held() const { return static_cast<std::int16_t>(held_.size()); }
    /// How many levels the archive has got so far, also after a failure.
    [[nodiscard]] std::int16_t written() const { return written_; }

private:
    struct HeldLevel {
        std::int64_t dataOffset;
        std::vector<std::byte> data;
    };
    void checkArchive() const;

    HeldArchive& archive_;
    std::vector<HeldLevel> held_;
    std::int16_t written_ = 0;
};

} // namespace pelrath
