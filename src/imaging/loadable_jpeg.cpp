#include "imaging/checked_bytes.hpp"
#include "imaging/loadable_file.hpp"

/// Markers and segments as in ITU-T T.81, annex B.
namespace pelrath {

namespace {

constexpr unsigned startOfImage = 0xFFD8;
constexpr unsigned endOfImage = 0xFFD9;
constexpr unsigned startOfScan = 0xFFDA;

unsigned bigEndianWordAt(const CheckedBytes& file, std::uint64_t offset) {
    return static_cast<unsigned>(file.byteAt(offset)) << 8 | file.byteAt(offset + 1);
}

bool isFrame(unsigned marker) {
    const bool table = marker == 0xFFC4 || marker == 0xFFC8 || marker == 0xFFCC;
    return marker >= 0xFFC0 && marker <= 0xFFCF && !table;
}

Sides frameSides(const CheckedBytes& file, std::uint64_t frame) {
    constexpr unsigned lastSupported = 0xFFC2; // baseline, extended, progressive
    const unsigned precision = file.byteAt(frame + 4);
    const unsigned channels = file.byteAt(frame + 9);
    const bool supported = bigEndianWordAt(file, frame) <= lastSupported && precision == 8;
    if (!supported || (channels != 1 && channels != 3)) refuse(Refusal::KindNotSupported);
    return checkedSides(bigEndianWordAt(file, frame + 7), bigEndianWordAt(file, frame + 5));
}

/// The sides that the frame header gives, which must stand before the first scan.
Sides sidesOf(const CheckedBytes& file) {
    std::uint64_t at = 2;
    Sides sides;
    for (;;) {
        const unsigned marker = bigEndianWordAt(file, at);
        if (marker < 0xFFC0 || marker == 0xFFFF) {
            if (marker != 0xFFFF) refuse(Refusal::NotThisKind);
            ++at; // any number of fill bytes may stand before a marker
            continue;
        }
        if (marker == startOfScan) break;
        const unsigned length = bigEndianWordAt(file, at + 2);
        if (length < 2) refuse(Refusal::ImpossibleValue);
        if (isFrame(marker)) {
            if (sides.width != 0) refuse(Refusal::ImpossibleValue);
            sides = frameSides(file, at);
        }
        at += 2 + length;
    }
    if (sides.width == 0) refuse(Refusal::NotThisKind);
    return sides;
}

/// Each scan of a progressive picture goes over all of it: a small file could keep the library at work for
/// hours.
void checkScans(const CheckedBytes& file) {
    constexpr int mostScans = 100; // writers use about ten
    int scans = 0;
    for (std::uint64_t at = 0; at + 1 < file.size(); ++at) {
        if (bigEndianWordAt(file, at) == startOfScan && ++scans > mostScans) refuse(Refusal::ImpossibleValue);
    }
}

void checkEnd(const CheckedBytes& file) {
    // Some writers put a few bytes behind the end; none of them keeps the end back.
    for (std::uint64_t at = file.size() - 1; at > 2; --at) {
        if (bigEndianWordAt(file, at - 1) == endOfImage) return;
    }
    refuse(Refusal::Truncated);
}

} // namespace

LoadableFile makeLoadableJpeg(std::vector<std::byte> file) {
    const CheckedBytes bytes{file};
    if (bytes.size() < 4 || bigEndianWordAt(bytes, 0) != startOfImage) refuse(Refusal::NotThisKind);
    const Sides sides = sidesOf(bytes);
    checkScans(bytes);
    checkEnd(bytes);
    return {FileKind::Jpg, std::move(file), sides, std::nullopt};
}

} // namespace pelrath
