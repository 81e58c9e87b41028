#include "imaging/bitmap_header.hpp"

#include <algorithm>

namespace pelrath {

namespace {

constexpr std::uint64_t fileHeaderBytes = 14;
constexpr std::uint64_t masksAt = 54; // behind a 40-byte header, inside a longer one
constexpr std::uint32_t coreHeader = 12;
constexpr std::uint32_t plainHeader = 40;
constexpr std::uint32_t alphaMaskHeader = 56; // the shortest one with an alpha mask
constexpr std::uint32_t os2Header = 64;
// Every pixel of a run-length coded picture may be left out, so that a few bytes can claim any size.
constexpr std::uint64_t mostRunPixels = std::uint64_t{1} << 26;

enum class Compression : std::uint32_t { None = 0, Rle8 = 1, Rle4 = 2, BitFields = 3, AlphaBitFields = 6 };

struct Shape {
    std::int64_t width;
    std::int64_t height;
    unsigned planes;
    unsigned bits;
    Compression compression;
};

Shape shapeOf(const CheckedBytes& file, std::uint32_t headerBytes) {
    if (headerBytes == coreHeader) {
        return {file.wordAt(18), file.wordAt(20), file.wordAt(22), file.wordAt(24), Compression::None};
    }
    return {static_cast<std::int32_t>(file.longAt(18)), static_cast<std::int32_t>(file.longAt(22)),
            file.wordAt(26), file.wordAt(28), static_cast<Compression>(file.longAt(30))};
}

void readCoding(BitmapHeader& header, Compression compression) {
    switch (compression) {
    case Compression::None:
        return;
    case Compression::Rle8:
        if (header.bits != 8) refuse(Refusal::ImpossibleValue);
        header.coding = BitmapCoding::Rle8;
        break;
    case Compression::Rle4:
        if (header.bits != 4) refuse(Refusal::ImpossibleValue);
        header.coding = BitmapCoding::Rle4;
        break;
    case Compression::BitFields:
    case Compression::AlphaBitFields:
        // In the OS/2 header the same number stands for another coding.
        if (header.headerBytes == os2Header) refuse(Refusal::KindNotSupported);
        requireOneOf({16, 32}, header.bits, Refusal::ImpossibleValue);
        header.hasMasks = true;
        return;
    default:
        refuse(Refusal::KindNotSupported);
    }
    if (header.sides.pixels() > mostRunPixels) refuse(Refusal::ImpossibleSides);
}

/// Answers how many bytes of masks stand behind the header.
std::uint64_t readMasks(BitmapHeader& header, const CheckedBytes& file, Compression compression) {
    std::array<std::uint32_t, 4> masks{0xFF0000, 0xFF00, 0xFF, 0};
    if (header.bits == 16) masks = {0x7C00, 0x3E0, 0x1F, 0};
    std::uint64_t behind = 0;
    if (header.hasMasks) {
        const bool alphaToo =
            compression == Compression::AlphaBitFields || header.headerBytes >= alphaMaskHeader;
        const std::uint64_t count = alphaToo ? 4 : 3;
        for (std::size_t i = 0; i < count; ++i) {
            masks[i] = file.longAt(masksAt + i * 4);
        }
        if ((masks[0] | masks[1] | masks[2]) == 0) refuse(Refusal::ImpossibleValue);
        if (header.headerBytes == plainHeader) behind = count * 4;
    }
    for (std::size_t i = 0; i < masks.size(); ++i) {
        header.masks[i] = channelMask(masks[i], header.bits);
    }
    return behind;
}

void readPalette(BitmapHeader& header, const CheckedBytes& file, std::uint64_t paletteAt) {
    const bool core = header.headerBytes == coreHeader;
    const std::uint64_t entryBytes = core ? 3 : 4;
    const std::uint64_t most = std::uint64_t{1} << header.bits;
    const std::uint64_t declared = core ? 0 : file.longAt(46);
    // Some writers declare more entries than they write; the picture data ends the palette in any case.
    const std::uint64_t room = (header.dataAt - paletteAt) / entryBytes;
    const std::uint64_t count = std::min({declared == 0 ? most : declared, most, room});
    if (count == 0) refuse(Refusal::ImpossibleValue);
    for (std::uint64_t i = 0; i < count; ++i) {
        const std::uint64_t at = paletteAt + i * entryBytes;
        header.palette.push_back({file.byteAt(at), file.byteAt(at + 1), file.byteAt(at + 2), 255});
    }
}

} // namespace

BitmapHeader readBitmapHeader(const CheckedBytes& file) {
    if (file.size() < fileHeaderBytes + coreHeader) refuse(Refusal::NotThisKind);
    BitmapHeader header;
    header.headerBytes = file.longAt(14);
    requireOneOf({coreHeader, plainHeader, 52, alphaMaskHeader, os2Header, 108, 124}, header.headerBytes,
                 Refusal::NotThisKind);
    const Shape shape = shapeOf(file, header.headerBytes);
    header.topRowFirst = shape.height < 0;
    header.sides = checkedSides(shape.width, header.topRowFirst ? -shape.height : shape.height);
    if (shape.planes != 1) refuse(Refusal::ImpossibleValue);
    header.bits = shape.bits;
    requireOneOf({1, 4, 8, 16, 24, 32}, header.bits, Refusal::ImpossibleValue);
    readCoding(header, shape.compression);
    std::uint64_t behindHeader = fileHeaderBytes + header.headerBytes;
    if (header.bits == 16 || header.bits == 32) behindHeader += readMasks(header, file, shape.compression);
    header.dataAt = file.longAt(10);
    if (header.dataAt < behindHeader || header.dataAt > file.size()) refuse(Refusal::ImpossibleValue);
    if (header.bits <= 8) readPalette(header, file, behindHeader);
    return header;
}

} // namespace pelrath
