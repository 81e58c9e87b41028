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

} // namespace pelrath
