#include "imaging/saved_file.hpp"

#include "imaging/block_decoder.hpp"
#include "imaging/checked_bytes.hpp"
#include "imaging/library_error.hpp"
#include "imaging/loadable_file.hpp"

#include <algorithm>
#include <array>
#include <string_view>

namespace pelrath {

namespace {

bool isWholeBitmap(Sides sides, const CheckedBytes& file) {
    const std::uint64_t stride = (std::uint64_t{sides.width} * file.wordAt(28) + 31) / 32 * 4;
    return file.size() == file.longAt(10) + stride * sides.height;
}

bool isWholeTarga(Sides sides, const CheckedBytes& file) {
    constexpr std::string_view lastWord = "TRUEVISION-XFILE.";
    constexpr std::uint64_t footer = 26;
    const std::uint64_t pixelBytes = (file.byteAt(16) + 7U) / 8U;
    if (file.size() < 18 + sides.pixels() * pixelBytes + footer) return false;
    const Bytes end = file.slice(file.size() - footer, footer);
    const auto same = [](std::byte a, char b) { return std::to_integer<char>(a) == b; };
    return std::search(end.begin(), end.end(), lastWord.begin(), lastWord.end(), same) != end.end();
}

constexpr std::size_t levelCountAt = 28;
constexpr std::size_t capabilitiesAt = 108;

BlockFormat blockFormatOf(const CheckedBytes& file) {
    return file.byteAt(87) == '1' ? BlockFormat::Dxt1 : BlockFormat::Dxt5;
}

bool isWholeDds(Sides sides, const CheckedBytes& file) {
    const BlockFormat format = blockFormatOf(file);
    const std::uint32_t levels = std::clamp(file.longAt(levelCountAt), 1U, 32U);
    std::uint64_t length = LoadableFile::blocksAt;
    for (std::uint32_t level = 0; level < levels; ++level) {
        length +=
            bytesPerLevel(format, std::max(sides.width >> level, 1U), std::max(sides.height >> level, 1U));
    }
    return file.size() == length;
}

bool isWholeJpeg(const CheckedBytes& file) {
    constexpr unsigned endOfImage = 0xD9FF;
    return file.size() > 4 && file.wordAt(file.size() - 2) == endOfImage;
}

} // namespace

bool isWholeFile(std::int32_t imageType, Sides sides, Bytes bytes) try {
    const CheckedBytes file{bytes};
    switch (static_cast<FileKind>(imageType)) {
    case FileKind::Bmp:
        return isWholeBitmap(sides, file);
    case FileKind::Tga:
        return isWholeTarga(sides, file);
    case FileKind::Dds:
        return isWholeDds(sides, file);
    case FileKind::Jpg:
        return isWholeJpeg(file);
    }
    return !bytes.empty();
} catch (const ImageLibraryError&) {
    return false; // too short for a header
}

std::vector<std::byte> withoutChain(Sides sides, Bytes file) {
    const std::uint64_t level = bytesPerLevel(blockFormatOf(CheckedBytes{file}), sides.width, sides.height);
    const Bytes kept = file.first(LoadableFile::blocksAt + static_cast<std::size_t>(level));
    std::vector<std::byte> single{kept.begin(), kept.end()};
    single[levelCountAt] = std::byte{1};
    constexpr std::array texture{std::byte{0x00}, std::byte{0x10}, std::byte{0x00}, std::byte{0x00}};
    std::copy(texture.begin(), texture.end(), single.begin() + capabilitiesAt);
    return single;
}

} // namespace pelrath
