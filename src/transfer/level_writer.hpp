#pragma once

#include "transfer/held_archive.hpp"
#include "transfer/level_bytes.hpp"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace pelrath {

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

    /// Holds these bytes for the level, which must be as long.
    void holdLevel(std::int16_t textureIndex, std::int16_t level, std::vector<std::byte> data);

    /// Writes what is held, in the order in which it was read, all of it or, when it fails, nothing
    /// (HeldArchive::overwriteLevels()), and answers written(). ArchiveRefused, before the first write, where
    /// the archive is no longer the file that was read or a level's place is not its own.
    std::int16_t writeHeldLevels();

    /// Both: copies the levels and answers how many were written.
    std::int16_t writeMipmapLevels(const std::string& sourcePath, std::int16_t textureIndex, bool chained,
                                   std::int16_t selectedLevel);

    [[nodiscard]] std::int16_t held() const { return static_cast<std::int16_t>(held_.size()); }
    /// What is held: places in the archive and their new bytes.
    [[nodiscard]] const std::vector<LevelBytes>& heldLevels() const { return held_; }
    /// How many levels the archive has got.
    [[nodiscard]] std::int16_t written() const { return written_; }

private:
    void checkArchive() const;

    HeldArchive& archive_;
    std::vector<LevelBytes> held_;
    std::int16_t written_ = 0;
};

} // namespace pelrath
