#include "imaging/bitmap_header.hpp"
#include "imaging/bitmap_runs.hpp"
#include "imaging/loadable_file.hpp"

#include <utility>

namespace pelrath {

namespace {

std::uint32_t indexAt(Bytes row, std::uint32_t x, unsigned bits) {
    const std::size_t bit = std::size_t{x} * bits;
    const auto byte = std::to_integer<std::uint32_t>(row[bit / 8]);
    return byte >> (8 - bits - bit % 8) & ((1U << bits) - 1);
}

Bgra maskedPixel(std::uint32_t stored, const BitmapHeader& header) {
    return {header.masks[2].valueIn(stored, 0), header.masks[1].valueIn(stored, 0),
            header.masks[0].valueIn(stored, 0), header.masks[3].valueIn(stored, 255)};
}

Bgra pixelAt(Bytes row, std::uint32_t x, const BitmapHeader& header) {
    if (header.bits >= 16) {
        const std::size_t bytes = header.bits / 8;
        const auto stored = static_cast<std::uint32_t>(littleEndian(row.subspan(x * bytes, bytes)));
        if (header.bits == 24) {
            return {static_cast<std::uint8_t>(stored), static_cast<std::uint8_t>(stored >> 8),
                    static_cast<std::uint8_t>(stored >> 16), 255};
        }
        return maskedPixel(stored, header);
    }
    const std::uint32_t index = indexAt(row, x, header.bits);
    if (index >= header.palette.size()) refuse(Refusal::ImpossibleValue);
    return header.palette[index];
}

Bytes rowAt(const CheckedBytes& file, const BitmapHeader& header, std::uint32_t y) {
    const std::uint32_t stored = header.topRowFirst ? y : header.sides.height - 1 - y;
    return file.slice(header.dataAt + stored * header.rowStride(), header.rowBytes());
}

/// A 32-bit file without masks has a spare byte in each pixel, where some editors put the alpha; the others
/// leave it 0.
bool spareByteIsAlpha(const CheckedBytes& file, const BitmapHeader& header) {
    for (std::uint32_t y = 0; y < header.sides.height; ++y) {
        if (anyLastByteSet(rowAt(file, header, y), 4)) return true;
    }
    return false;
}

void paintRows(PlainTarga& picture, const CheckedBytes& file, const BitmapHeader& header) {
    for (std::uint32_t y = 0; y < header.sides.height; ++y) {
        const Bytes row = rowAt(file, header, y);
        for (std::uint32_t x = 0; x < header.sides.width; ++x) {
            picture.put(x, y, pixelAt(row, x, header));
        }
    }
}

bool libraryReadsRightly(const BitmapHeader& header, const CheckedBytes& file) {
    constexpr std::uint32_t onlyHeaderItKnows = 40;
    const std::uint32_t declaredColours = header.headerBytes == onlyHeaderItKnows ? file.longAt(46) : 0;
    return header.headerBytes == onlyHeaderItKnows && header.bits == 24 && declaredColours == 0 &&
           header.dataAt + header.rowStride() * header.sides.height <= file.size();
}

} // namespace

LoadableFile makeLoadableBitmap(std::vector<std::byte> file) {
    const CheckedBytes bytes{file};
    BitmapHeader header = readBitmapHeader(bytes);
    if (libraryReadsRightly(header, bytes)) {
        return {FileKind::Bmp, std::move(file), header.sides, std::nullopt};
    }
    if (header.coding == BitmapCoding::Plain) {
        // The last row's padding is not needed, and not always there.
        static_cast<void>(rowAt(bytes, header, header.topRowFirst ? header.sides.height - 1 : 0));
        if (header.bits == 32 && !header.hasMasks && spareByteIsAlpha(bytes, header)) {
            header.masks[3] = {0xFF000000, 24};
        }
    }
    PlainTarga picture{header.sides, header.masks[3].mask != 0};
    if (header.coding == BitmapCoding::Plain) {
        paintRows(picture, bytes, header);
    } else {
        paintRuns(picture, bytes, header);
    }
    return {FileKind::Tga, picture.take(), header.sides, std::nullopt};
}

} // namespace pelrath
