#include "transfer/level_writer.hpp"

#include "archive/table_places.hpp"
#include "platform/runtime_error.hpp"

#include <optional>
#include <utility>

namespace pelrath {

void LevelWriter::readMipmapLevels(const std::string& sourcePath, std::int16_t textureIndex, bool chained,
                                   std::int16_t selectedLevel) {
    std::optional<InputFile> source; // one opening: another file can take its place at any time
    std::int64_t skip = 0;
    std::int16_t i = 0;
    for (const MipmapRecord& level :
         archive_.session().archive.textures.at(static_cast<std::size_t>(textureIndex)).mipmaps) {
        if (level.dataSize == 0 && i == selectedLevel) {
            throw RuntimeError{static_cast<int>(ErrorNumber::InvalidCall), "readMipmapLevels",
                               "level " + std::to_string(i) + " of the texture has no data in " +
                                   archive_.session().archivePath + ". Please choose another"};
        }
        if (level.dataSize > 0 && (selectedLevel == everyLevel || selectedLevel == i)) {
            archive_.run(static_cast<std::uint64_t>(level.dataSize), [&] {
                if (!source) source.emplace(sourcePath);
                held_.push_back(
                    {level.dataOffset, readFileBytes(*source, firstLevelPosition + skip, level.dataSize)});
            });
        }
        if (chained) skip += level.dataSize;
        ++i;
    }
}

void LevelWriter::holdLevel(std::int16_t textureIndex, std::int16_t level, std::vector<std::byte> data) {
    const TextureRecord& texture =
        archive_.session().archive.textures.at(static_cast<std::size_t>(textureIndex));
    const MipmapRecord& record = texture.mipmaps.at(static_cast<std::size_t>(level));
    if (data.size() != static_cast<std::size_t>(record.dataSize)) {
        throw makeError(ErrorNumber::InvalidCall, "holdLevel", texture.name);
    }
    held_.push_back({record.dataOffset, std::move(data)});
}

void LevelWriter::checkArchive() const {
    const ArchiveContents& contents = archive_.requireTables();
    for (const LevelBytes& level : held_) {
        if (!touchesTables(contents, level.dataOffset, static_cast<std::int64_t>(level.data.size())))
            continue;
        throw ArchiveRefused{static_cast<int>(ErrorNumber::PathFileAccess), "checkArchive",
                             archive_.session().archivePath + " is damaged: the data at " +
                                 std::to_string(level.dataOffset) +
                                 " would overwrite its tables. Please take a fresh copy of the file"};
    }
}

std::int16_t LevelWriter::writeHeldLevels() {
    checkArchive();
    archive_.overwriteLevels(held_);
    written_ = held();
    return written_;
}

std::int16_t LevelWriter::writeMipmapLevels(const std::string& sourcePath, std::int16_t textureIndex,
                                            bool chained, std::int16_t selectedLevel) {
    readMipmapLevels(sourcePath, textureIndex, chained, selectedLevel);
    return writeHeldLevels();
}

} // namespace pelrath
