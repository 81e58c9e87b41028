#include "imaging/saved_file.hpp"

#include "imaging/dds_header.hpp"
#include "imaging/library_error.hpp"
#include "imaging/loadable_file.hpp"

#include <algorithm>
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

bool isWholeDds(Sides sides, const CheckedBytes& file) {
    const std::uint32_t levels = std::clamp(file.longAt(levelCountAt), 1U, 32U);
    return file.size() ==
           LoadableFile::blocksAt + bytesPerChain(blockFormatOf(file), sides.width, sides.height, levels);
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

void dropChain(Sides sides, std::vector<std::byte>& file) {
    const std::uint64_t level = bytesPerLevel(blockFormatOf(CheckedBytes{file}), sides.width, sides.height);
    file.resize(LoadableFile::blocksAt + static_cast<std::size_t>(level));
    writeLong(file, levelCountAt, 1);
    writeLong(file, capabilitiesAt, textureCapability);
}

void declareAlpha(std::vector<std::byte>& file) {
    constexpr std::byte eightAlphaBits{8};
    constexpr std::byte highBits{0xF0};
    if (file[16] == std::byte{32}) file[17] = (file[17] & highBits) | eightAlphaBits;
}

} // namespace pelrath
