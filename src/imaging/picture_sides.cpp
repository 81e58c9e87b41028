#include "imaging/picture_sides.hpp"

#include "imaging/bitmap_header.hpp"
#include "imaging/targa_header.hpp"

#include <algorithm>

namespace pelrath {

Sides sidesOfPicture(FileKind kind, Bytes start) {
    requireStartOf(kind, start.first(std::min<std::size_t>(start.size(), 4)));
    switch (kind) {
    case FileKind::Dds: {
        const DdsHeader header = ddsHeaderOf(start);
        return checkedSides(header.width, header.height);
    }
    case FileKind::Bmp:
        return readBitmapHeader(CheckedBytes{start}).sides;
    case FileKind::Tga:
        return readTargaHeader(CheckedBytes{start}).sides;
    case FileKind::Jpg:
        break;
    }
    refuse(Refusal::KindNotSupported);
}

std::uint64_t leastBytesOfPicture(FileKind kind, Bytes start) {
    requireStartOf(kind, start.first(std::min<std::size_t>(start.size(), 4)));
    if (kind == FileKind::Bmp) {
        const BitmapHeader header = readBitmapHeader(CheckedBytes{start});
        if (header.coding != BitmapCoding::Plain) return 0;
        return header.dataAt + (header.sides.height - 1) * header.rowStride() + header.rowBytes();
    }
    if (kind == FileKind::Tga) {
        const TargaHeader header = readTargaHeader(CheckedBytes{start});
        if (header.runs || header.stored.bits < 8) return 0;
        return header.dataAt + header.sides.pixels() * header.stored.bytes();
    }
    return 0;
}

} // namespace pelrath
