#include "imaging/saved_file.hpp"

#include "imaging/chain_encoder.hpp"
#include "imaging/dds_format.hpp"
#include "imaging/library_error.hpp"
#include "imaging/loadable_file.hpp"

#include <algorithm>
#include <span>
#include <string_view>

namespace pelrath {

namespace {

bool isWholeBitmap(Sides sides, const CheckedBytes& file) {
    const std::uint64_t stride = (std::uint64_t{sides.width} * file.wordAt(28) + 31) / 32 * 4;
    return file.size() == file.longAt(10) + stride * sides.height;
}

constexpr std::size_t targaHeader = 18;
constexpr std::size_t targaFooter = 26;
constexpr std::string_view targaSignature{"TRUEVISION-XFILE.\0", 18};

std::size_t targaPixelBytes(const CheckedBytes& file) { return (file.byteAt(16) + 7U) / 8U; }

bool isWholeTarga(Sides sides, const CheckedBytes& file) {
    // The library leaves out the NUL that closes its footer.
    const std::string_view lastWord = targaSignature.substr(0, targaSignature.size() - 1);
    if (file.byteAt(0) != 0 || file.byteAt(1) != 0) return false; // nothing between header and pixels
    if (file.size() < targaHeader + sides.pixels() * targaPixelBytes(file) + targaFooter) return false;
    const Bytes end = file.slice(file.size() - targaFooter, targaFooter);
    const auto same = [](std::byte a, char b) { return std::to_integer<char>(a) == b; };
    return std::search(end.begin(), end.end(), lastWord.begin(), lastWord.end(), same) != end.end();
}

void reverseRows(std::span<std::byte> pixels, std::size_t row) {
    for (; pixels.size() >= 2 * row; pixels = pixels.subspan(row, pixels.size() - 2 * row)) {
        std::ranges::swap_ranges(pixels.first(row), pixels.last(row));
    }
}

bool isWholeDds(Sides sides, const CheckedBytes& file) {
    const DdsHeader header = ddsHeaderOf(file.slice(0, sizeof header));
    const std::uint32_t levels = std::clamp(header.mipmapCount, 1U, 32U);
    return file.size() ==
           LoadableFile::blocksAt + bytesPerChain(blockFormatOf(header), sides.width, sides.height, levels);
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

std::span<std::byte> makeRoomForLevels(BlockFormat format, std::span<const Pixels> levels,
                                       std::vector<std::byte>& file) {
    DdsHeader header = ddsHeaderOf(file);
    const Sides sides = levels.front().sides;
    header.width = sides.width;
    header.height = sides.height;
    header.linearSize = static_cast<std::uint32_t>(bytesOfLevels(format, levels.first(1)));
    header.mipmapCount = static_cast<std::uint32_t>(levels.size());
    header.capabilities[0] = DdsHeader::Texture;
    if (levels.size() > 1) header.capabilities[0] |= DdsHeader::Complex | DdsHeader::Mipmap;
    file.assign(bytesOf(header).begin(), bytesOf(header).end());
    file.resize(LoadableFile::blocksAt + static_cast<std::size_t>(bytesOfLevels(format, levels)));
    return std::span{file}.subspan(LoadableFile::blocksAt);
}

void finishTarga(Sides sides, FirstRow firstRow, std::vector<std::byte>& file) {
    constexpr std::byte topRowFirst{0x20};
    constexpr std::byte eightAlphaBits{8};
    const bool alpha = file[16] == std::byte{32};
    const bool reversed = ((file[17] & topRowFirst) != std::byte{0}) != (firstRow == FirstRow::Top);
    const std::size_t row = std::size_t{sides.width} * targaPixelBytes(CheckedBytes{file});
    file.resize(targaHeader + row * sides.height);
    std::fill_n(file.begin() + 3, 9, std::byte{0}); // the palette that there is not, and the origin
    file[17] =
        (firstRow == FirstRow::Top ? topRowFirst : std::byte{0}) | (alpha ? eightAlphaBits : std::byte{0});
    if (reversed) reverseRows(std::span{file}.subspan(targaHeader), row);
    file.insert(file.end(), targaFooter - targaSignature.size(), std::byte{0}); // neither of its two areas
    const auto signature = std::as_bytes(std::span{targaSignature});
    file.insert(file.end(), signature.begin(), signature.end());
}

} // namespace pelrath
