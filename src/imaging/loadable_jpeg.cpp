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

/// Where the next marker stands. Among coded data, a marker is what starts with FF and is neither a stuffed
/// byte nor one that divides the data; elsewhere nothing but fill bytes may stand before it.
std::uint64_t nextMarker(const CheckedBytes& file, std::uint64_t at, bool amongData) {
    constexpr unsigned fill = 0xFFFF;
    constexpr unsigned firstDivider = 0xFFD0;
    constexpr unsigned lastDivider = 0xFFD7;
    for (;; ++at) {
        const unsigned word = bigEndianWordAt(file, at);
        const bool divider = word >= firstDivider && word <= lastDivider;
        if (word >= 0xFFC0 && word != fill && !divider) return at;
        if (word != fill && !amongData) refuse(Refusal::NotThisKind);
    }
}

/// Follows the markers to the end mark, behind which some writers put data of their own, and answers the
/// sides that the frame header gives.
Sides sidesOf(const CheckedBytes& file) {
    // Each scan of a progressive picture goes over all of it: a small file could keep the library at work for
    // hours. Writers use about ten.
    constexpr int mostScans = 100;
    Sides sides;
    int scans = 0;
    for (std::uint64_t at = 2;;) {
        at = nextMarker(file, at, scans > 0);
        const unsigned marker = bigEndianWordAt(file, at);
        if (marker == endOfImage) break;
        const unsigned length = bigEndianWordAt(file, at + 2);
        if (marker == startOfImage || length < 2) refuse(Refusal::ImpossibleValue);
        if (isFrame(marker)) {
            if (sides.width != 0) refuse(Refusal::ImpossibleValue);
            sides = frameSides(file, at);
        }
        if (marker == startOfScan) {
            if (sides.width == 0) refuse(Refusal::NotThisKind);
            if (++scans > mostScans) refuse(Refusal::ImpossibleValue);
        }
        at += 2 + length;
    }
    if (scans == 0) refuse(Refusal::NotThisKind);
    return sides;
}

} // namespace

LoadableFile makeLoadableJpeg(std::vector<std::byte> file) {
    const CheckedBytes bytes{file};
    const Sides sides = sidesOf(bytes);
    return {FileKind::Jpg, std::move(file), sides, std::nullopt};
}

} // namespace pelrath
