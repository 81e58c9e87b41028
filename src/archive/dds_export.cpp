#include "archive/dds_export.hpp"

#include "platform/runtime_error.hpp"
#include "platform/text.hpp"

#include <array>

namespace pelrath {

namespace {

constexpr std::int64_t largestFileData = 0x7FFFFFFF;

[[noreturn]] void fail(ErrorNumber number, const std::string& text) {
    throw RuntimeError{static_cast<int>(number), "DdsExport", text};
}

bool isIndex(std::int16_t index, std::size_t count) {
    return index >= 0 && static_cast<std::size_t>(index) < count;
}

void readLevel(const InputFile& archive, const MipmapRecord& level, std::vector<std::byte>& data) {
    data.resize(static_cast<std::size_t>(level.dataSize));
    archive.readAt(static_cast<std::uint64_t>(level.dataOffset), data);
}

} // namespace

const TextureRecord& DdsExport::texture(std::int16_t index) const {
    if (!isIndex(index, archive_.textures.size())) {
        fail(ErrorNumber::SubscriptOutOfRange, "texture " + std::to_string(index + 1) +
                                                   " is not among those read from " + archivePath_ +
                                                   ". Please read the archive again");
    }
    return archive_.textures[static_cast<std::size_t>(index)];
}

const MipmapRecord& DdsExport::level(std::int16_t textureIndex, std::int16_t index) const {
    const TextureRecord& owner = texture(textureIndex);
    if (!isIndex(index, owner.mipmaps.size())) {
        fail(ErrorNumber::SubscriptOutOfRange, "the texture \"" + visibleText(owner.name) +
                                                   "\" has no level " + std::to_string(index) + " in " +
                                                   archivePath_ + ". Please choose another");
    }
    return owner.mipmaps[static_cast<std::size_t>(index)];
}

void DdsExport::requireData(const MipmapRecord& level) const {
    if (level.dataSize > 0) return;
    fail(ErrorNumber::InvalidCall, "the level of " + std::to_string(level.width) + " x " +
                                       std::to_string(level.height) + " has no data in " + archivePath_ +
                                       ". Please choose another");
}

std::string DdsExport::describe(std::int16_t textureIndex) const {
    return "\"" + visibleText(texture(textureIndex).name) + "\" in " + archivePath_;
}

DdsHeader DdsExport::buildDdsHeader(std::int16_t textureIndex, std::int16_t levelIndex) const {
    const MipmapRecord& record = level(textureIndex, levelIndex);
    const char kind = static_cast<char>(ansiCode(lastCharacter(texture(textureIndex).fourCC)));
    const auto number = [](std::int32_t value) { return static_cast<std::uint32_t>(value); };
    return ddsLevelHeader(number(record.width), number(record.height), number(record.dataSize),
                          fourCC('D', 'X', 'T', kind));
}

std::vector<std::byte> DdsExport::readLevelData(std::int16_t textureIndex, std::int16_t levelIndex) const {
    const MipmapRecord& record = level(textureIndex, levelIndex);
    requireData(record);
    std::vector<std::byte> data;
    readLevel(openArchive(), record, data);
    return data;
}

void DdsExport::writeDdsLevelFile(const std::string& path, std::int16_t textureIndex, std::int16_t levelIndex,
                                  Durability durability, OldFile old) const {
    const DdsHeader header = buildDdsHeader(textureIndex, levelIndex);
    const std::vector<std::byte> data = readLevelData(textureIndex, levelIndex);
    const std::array<Bytes, 2> pieces{bytesOf(header), Bytes{data}};
    replaceFile(path, pieces, durability, old);
}

void DdsExport::writeDdsChainFile(const std::string& path, std::int16_t textureIndex, Durability durability,
                                  OldFile old) const {
    DdsHeader header = buildDdsHeader(textureIndex, 0);
    header.flags |= DdsHeader::MipmapCountGiven;
    header.mipmapCount = static_cast<std::uint32_t>(texture(textureIndex).mipmapCount);
    header.capabilities[0] |= DdsHeader::Complex | DdsHeader::Mipmap;
    const std::vector<MipmapRecord>& levels = texture(textureIndex).mipmaps;
    // Levels that share their bytes can add up to far more than the archive itself.
    std::int64_t sum = 0;
    for (const MipmapRecord& record : levels) {
        requireData(record);
        sum += record.dataSize;
    }
    if (sum > largestFileData) {
        fail(ErrorNumber::Overflow, "all levels of the texture \"" + visibleText(texture(textureIndex).name) +
                                        "\" are more than one file can hold. Please take single levels");
    }
    const InputFile archive = openArchive();
    FileReplacement file{path, old};
    file.write(bytesOf(header));
    for (const MipmapRecord& record : levels) {
        file.write(archive, static_cast<std::uint64_t>(record.dataOffset),
                   static_cast<std::uint64_t>(record.dataSize));
    }
    file.finish(durability);
}

} // namespace pelrath
