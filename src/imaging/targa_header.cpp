#include "imaging/targa_header.hpp"

#include <algorithm>
#include <optional>
#include <span>
#include <string_view>

namespace pelrath {

namespace {

constexpr std::uint64_t headerBytes = 18;
constexpr unsigned alphaBitsMask = 0x0F;
constexpr unsigned rightColumnFirst = 0x10;
constexpr unsigned topRowFirst = 0x20;
constexpr unsigned interleaved = 0xC0;

void readKind(TargaHeader& header, const CheckedBytes& file) {
    const unsigned type = file.byteAt(2);
    header.runs = type >= 9;
    header.kind = static_cast<PixelKind>(header.runs ? type - 8 : type);
}

/// Finds the palette and what follows it; a picture of true colour may carry one that it does not use.
void readPalette(TargaHeader& header, const CheckedBytes& file) {
    const unsigned present = file.byteAt(1);
    const bool needed = header.kind == PixelKind::Palette;
    if (present > 1 || (needed && present == 0)) refuse(Refusal::NotThisKind);
    header.dataAt = headerBytes + file.byteAt(0);
    if (present == 0) return;
    const PixelForm form{.bits = file.byteAt(7)};
    const std::uint64_t bytes = std::uint64_t{file.wordAt(5)} * form.bytes();
    if (needed) {
        requireOneOf({15, 16, 24, 32}, form.bits, Refusal::ImpossibleValue);
        header.firstIndex = file.wordAt(3);
        header.palette = file.slice(header.dataAt, bytes);
        header.colours = form;
    }
    header.dataAt += bytes;
}

void readForm(TargaHeader& header, unsigned bits) {
    switch (header.kind) {
    case PixelKind::Palette:
        requireOneOf({8, 16}, bits, Refusal::ImpossibleValue);
        header.stored = {.bits = bits};
        return;
    case PixelKind::TrueColour:
        requireOneOf({15, 16, 24, 32}, bits, Refusal::ImpossibleValue);
        header.stored = {.bits = bits};
        break;
    case PixelKind::Grey:
        requireOneOf({1, 8, 16}, bits, Refusal::ImpossibleValue);
        if (bits == 1 && header.runs) refuse(Refusal::KindNotSupported);
        header.stored = {.bits = bits, .grey = true};
        break;
    }
    header.colours = header.stored;
}

/// The attributes type of the extension area, to which a footer at the file's end leads.
std::optional<unsigned> attributesType(const CheckedBytes& file) {
    constexpr std::string_view signature{"TRUEVISION-XFILE.\0", 18};
    constexpr std::uint64_t footerBytes = 26;
    constexpr std::uint64_t extensionBytes = 495;
    if (file.size() < headerBytes + footerBytes + extensionBytes) return std::nullopt;
    const Bytes end = file.slice(file.size() - signature.size(), signature.size());
    if (!std::ranges::equal(end, std::as_bytes(std::span{signature}))) return std::nullopt;
    const std::uint64_t extension = file.longAt(file.size() - footerBytes);
    const bool inside = extension >= headerBytes && extension <= file.size() - footerBytes - extensionBytes;
    if (!inside || file.wordAt(extension) != extensionBytes) return std::nullopt;
    return file.byteAt(extension + extensionBytes - 1);
}

AlphaClaim alphaClaim(const CheckedBytes& file) {
    switch (attributesType(file).value_or(255)) {
    case 0: // none
    case 1: // undefined, to be ignored
    case 2: // undefined, to be kept
        return AlphaClaim::None;
    case 3:
        return AlphaClaim::Straight;
    case 4:
        return AlphaClaim::Premultiplied;
    default:
        return (file.byteAt(17) & alphaBitsMask) != 0 ? AlphaClaim::Straight : AlphaClaim::NotMade;
    }
}

} // namespace

TargaHeader readTargaHeader(const CheckedBytes& file) {
    if (file.size() < headerBytes) refuse(Refusal::NotThisKind);
    TargaHeader header;
    const unsigned descriptor = file.byteAt(17);
    if ((descriptor & interleaved) != 0) refuse(Refusal::KindNotSupported);
    readKind(header, file);
    readPalette(header, file);
    readForm(header, file.byteAt(16));
    header.sides = checkedSides(file.wordAt(12), file.wordAt(14));
    header.fromRight = (descriptor & rightColumnFirst) != 0;
    header.fromTop = (descriptor & topRowFirst) != 0;
    header.alphaClaim = alphaClaim(file);
    return header;
}

} // namespace pelrath
