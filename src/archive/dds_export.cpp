#include "archive/dds_export.hpp"

#include "platform/runtime_error.hpp"
#include "platform/text.hpp"

#include <cstring>

namespace pelrath {

namespace {

// Positions and values of the DDS header as Microsoft's DDS programming guide gives them.
enum Position : std::size_t {
    SizeAt = 4,
    FlagsAt = 8,
    HeightAt = 12,
    WidthAt = 16,
    LinearSizeAt = 20,
    MipmapCountAt = 28,
    FormatSizeAt = 76,
    FormatFlagsAt = 80,
    FourCCAt = 84,
    CapabilitiesAt = 108,
};
constexpr std::int64_t largestFileData = 0x7FFFFFFF;
constexpr std::int32_t surfaceSize = 124;
constexpr std::int32_t formatSize = 32;
constexpr std::int32_t fourCCValid = 0x4;
// capabilities, height, width, pixel format and linear size are valid
constexpr std::int32_t levelFlags = 0x00081007;
// the same and the mipmap count
constexpr std::int32_t chainFlags = 0x000A1007;
constexpr std::int32_t levelCapabilities = 0x00001000; // texture
constexpr std::int32_t chainCapabilities = 0x00401008; // complex, texture, mipmap

void put(DdsHeader& header, Position at, std::int32_t value) {
    std::memcpy(&header[at], &value, sizeof value);
}

template <class Container>
const auto& element(const Container& container, std::int16_t index, std::string_view what) {
    if (index < 0 || static_cast<std::size_t>(index) >= container.size()) {
        throw makeError(ErrorNumber::SubscriptOutOfRange, "DdsExport", what);
    }
    return container[static_cast<std::size_t>(index)];
}

// Fails for a level whose bytes cannot all be there.
void requireData(const InputFile& archive, const MipmapRecord& level) {
    if (level.dataSize <= 0) {
        throw makeError(ErrorNumber::InvalidCall, "DdsExport",
                        "the level of " + std::to_string(level.width) + " x " + std::to_string(level.height) +
                            " has no data in the archive");
    }
    const auto offset = static_cast<std::uint64_t>(level.dataOffset);
    const auto size = static_cast<std::uint64_t>(level.dataSize);
    if (offset > archive.size() || size > archive.size() - offset) {
        throw makeError(ErrorNumber::InputPastEnd, "DdsExport",
                        archive.path() + " has become shorter since it was read");
    }
}

void readLevel(const InputFile& archive, const MipmapRecord& level, std::vector<std::byte>& data) {
    requireData(archive, level);
    data.resize(static_cast<std::size_t>(level.dataSize));
    archive.readAt(static_cast<std::uint64_t>(level.dataOffset), data);
}

// Before anything is written: all levels are there, and together no more than one file holds. Levels that
// share their bytes can add up to far more than the archive itself.
void requireChain(const InputFile& archive, const std::vector<MipmapRecord>& levels) {
    std::int64_t sum = 0;
    for (const MipmapRecord& level : levels) {
        requireData(archive, level);
        sum += level.dataSize;
    }
    if (sum > largestFileData)
        throw makeError(ErrorNumber::Overflow, "DdsExport", "too many bytes for one file");
}

} // namespace

const TextureRecord& DdsExport::texture(std::int16_t index) const {
    return element(archive_.textures, index, "there is no such texture");
}

const MipmapRecord& DdsExport::level(std::int16_t textureIndex, std::int16_t index) const {
    return element(texture(textureIndex).mipmaps, index, "the texture has no level " + std::to_string(index));
}

DdsHeader DdsExport::buildDdsHeader(std::int16_t textureIndex, std::int16_t levelIndex) const {
    const MipmapRecord& record = level(textureIndex, levelIndex);
    DdsHeader header{};
    std::memcpy(header.data(), "DDS ", 4);
    put(header, SizeAt, surfaceSize);
    put(header, FlagsAt, levelFlags);
    put(header, HeightAt, record.height);
    put(header, WidthAt, record.width);
    put(header, LinearSizeAt, record.dataSize);
    put(header, FormatSizeAt, formatSize);
    put(header, FormatFlagsAt, fourCCValid);
    std::memcpy(&header[FourCCAt], "DXT", 3);
    header[FourCCAt + 3] = std::byte{ansiCode(lastCharacter(texture(textureIndex).fourCC))};
    put(header, CapabilitiesAt, levelCapabilities);
    return header;
}

std::vector<std::byte> DdsExport::readLevelData(std::int16_t textureIndex, std::int16_t levelIndex) const {
    const MipmapRecord& record = level(textureIndex, levelIndex);
    const InputFile archive{archivePath_};
    std::vector<std::byte> data;
    readLevel(archive, record, data);
    return data;
}

void DdsExport::writeDdsLevelFile(const std::string& path, std::int16_t textureIndex, std::int16_t levelIndex,
                                  Durability durability) const {
    const DdsHeader header = buildDdsHeader(textureIndex, levelIndex);
    const std::vector<std::byte> data = readLevelData(textureIndex, levelIndex);
    const std::array<Bytes, 2> pieces{Bytes{header}, Bytes{data}};
    replaceFile(path, pieces, durability);
}

void DdsExport::writeDdsChainFile(const std::string& path, std::int16_t textureIndex) const {
    DdsHeader header = buildDdsHeader(textureIndex, 0);
    put(header, FlagsAt, chainFlags);
    put(header, MipmapCountAt, texture(textureIndex).mipmapCount);
    put(header, CapabilitiesAt, chainCapabilities);
    const InputFile archive{archivePath_};
    const std::vector<MipmapRecord>& levels = texture(textureIndex).mipmaps;
    requireChain(archive, levels);
    FileReplacement file{path};
    file.write(header);
    std::vector<std::byte> data;
    for (const MipmapRecord& record : levels) {
        readLevel(archive, record, data);
        file.write(data);
    }
    file.finish(Durability::Flushed);
}

std::optional<NativeImageKind> DdsExport::nativeImageKind(std::int16_t textureIndex) const {
    const std::string type = upperCase(texture(textureIndex).fourCC);
    if (type == "DXT1") return NativeImageKind{"BMP", ImageFileKind::Bmp};
    if (type == "DXT5") return NativeImageKind{"TGA", ImageFileKind::Tga};
    return std::nullopt;
}

} // namespace pelrath
