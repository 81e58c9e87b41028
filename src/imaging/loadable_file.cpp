#include "imaging/loadable_file.hpp"

#include "platform/dds_header.hpp"

#include <algorithm>
#include <utility>

namespace pelrath {

void requireStartOf(FileKind kind, Bytes start) {
    constexpr std::uint64_t bitmap = 0x4D42; // "BM"
    constexpr std::uint64_t startOfImage = 0xD8FF;
    const std::uint64_t four = littleEndian(start);
    if (start.size() < 4) refuse(Refusal::NotThisKind);
    if (kind == FileKind::Bmp && (four & 0xFFFFU) != bitmap) refuse(Refusal::NotThisKind);
    if (kind == FileKind::Jpg && (four & 0xFFFFU) != startOfImage) refuse(Refusal::NotThisKind);
    if (kind == FileKind::Dds && four != ddsMagic) refuse(Refusal::NotThisKind);
    if (kind == FileKind::Tga) {
        requireOneOf({1, 2, 3, 9, 10, 11}, four >> 16 & 0xFFU, Refusal::KindNotSupported);
    }
}

LoadableFile makeLoadable(FileKind kind, std::vector<std::byte> file) {
    requireStartOf(kind, Bytes{file}.first(std::min<std::size_t>(file.size(), 4)));
    switch (kind) {
    case FileKind::Bmp:
        return makeLoadableBitmap(std::move(file));
    case FileKind::Tga:
        return makeLoadableTarga(std::move(file));
    case FileKind::Dds:
        return makeLoadableDds(std::move(file));
    case FileKind::Jpg:
        return makeLoadableJpeg(std::move(file));
    }
    refuse(Refusal::KindNotSupported);
}

} // namespace pelrath
