#include "imaging/checked_bytes.hpp"
#include "imaging/loadable_file.hpp"
#include "imaging/plain_targa.hpp"

#include <algorithm>
#include <utility>

/// Offsets and codes are those of the Truevision TGA format, version 2.0.
namespace pelrath {

namespace {

constexpr std::uint64_t headerBytes = 18;
constexpr unsigned alphaBitsMask = 0x0F;
constexpr unsigned rightColumnFirst = 0x10;
constexpr unsigned topRowFirst = 0x20;
constexpr unsigned interleaved = 0xC0;

enum class PixelKind { Palette = 1, TrueColour = 2, Grey = 3 };

/// How one pixel, or one entry of the palette, is stored.
struct PixelForm {
    unsigned bits = 0;
    bool grey = false;
    bool alpha = false;

    [[nodiscard]] std::size_t bytes() const { return (bits + 7) / 8; }
};

struct TargaHeader {
    PixelKind kind = PixelKind::TrueColour;
    bool runs = false;
    PixelForm stored;  ///< of the picture data
    PixelForm colours; ///< of what is shown: the palette's form in a palette picture
    Sides sides;
    bool fromRight = false;
    bool fromTop = false;
    unsigned firstIndex = 0; ///< the index of the palette's first entry
    Bytes palette;
    std::uint64_t dataAt = 0;
};

bool oneOf(unsigned value, std::initializer_list<unsigned> allowed) {
    return std::find(allowed.begin(), allowed.end(), value) != allowed.end();
}

/// 32 bits carry alpha whatever the header claims: writers leave the claim at 0, the library among them.
PixelForm colourForm(unsigned bits, unsigned alphaBits) {
    return {bits, false, bits == 32 || (bits == 16 && alphaBits != 0)};
}

void readKind(TargaHeader& header, const CheckedBytes& file) {
    const unsigned type = file.byteAt(2);
    if (!oneOf(type, {1, 2, 3, 9, 10, 11})) refuse(Refusal::KindNotSupported);
    header.runs = type >= 9;
    header.kind = static_cast<PixelKind>(header.runs ? type - 8 : type);
}

/// Finds the palette and what follows it; a picture of true colour may carry one that it does not use.
void readPalette(TargaHeader& header, const CheckedBytes& file, unsigned alphaBits) {
    const unsigned present = file.byteAt(1);
    const bool needed = header.kind == PixelKind::Palette;
    if (present > 1 || (needed && present == 0)) refuse(Refusal::NotThisKind);
    header.dataAt = headerBytes + file.byteAt(0);
    if (present == 0) return;
    const PixelForm form = colourForm(file.byteAt(7), alphaBits);
    const std::uint64_t bytes = std::uint64_t{file.wordAt(5)} * form.bytes();
    if (needed) {
        if (!oneOf(form.bits, {15, 16, 24, 32})) refuse(Refusal::ImpossibleValue);
        header.firstIndex = file.wordAt(3);
        header.palette = file.slice(header.dataAt, bytes);
        header.colours = form;
    }
    header.dataAt += bytes;
}

void readForm(TargaHeader& header, unsigned bits, unsigned alphaBits) {
    switch (header.kind) {
    case PixelKind::Palette:
        if (!oneOf(bits, {8, 16})) refuse(Refusal::ImpossibleValue);
        header.stored = {bits, false, false};
        return;
    case PixelKind::TrueColour:
        if (!oneOf(bits, {15, 16, 24, 32})) refuse(Refusal::ImpossibleValue);
        header.stored = colourForm(bits, alphaBits);
        break;
    case PixelKind::Grey:
        if (!oneOf(bits, {8, 16})) refuse(Refusal::ImpossibleValue);
        header.stored = {bits, true, bits == 16};
        break;
    }
    header.colours = header.stored;
}

TargaHeader readHeader(const CheckedBytes& file) {
    TargaHeader header;
    const unsigned descriptor = file.byteAt(17);
    if ((descriptor & interleaved) != 0) refuse(Refusal::KindNotSupported);
    readKind(header, file);
    readPalette(header, file, descriptor & alphaBitsMask);
    readForm(header, file.byteAt(16), descriptor & alphaBitsMask);
    header.sides = checkedSides(file.wordAt(12), file.wordAt(14));
    header.fromRight = (descriptor & rightColumnFirst) != 0;
    header.fromTop = (descriptor & topRowFirst) != 0;
    return header;
}

struct Run {
    std::uint64_t pixels;
    bool repeated;      ///< one stored pixel stands for all of them
    std::uint64_t next; ///< where the next run starts
    Bytes stored;
};

Run runAt(const CheckedBytes& file, const TargaHeader& header, std::uint64_t at) {
    const unsigned head = file.byteAt(at);
    const bool repeated = (head & 0x80U) != 0;
    const std::uint64_t pixels = (head & 0x7FU) + 1;
    const std::uint64_t bytes = (repeated ? 1 : pixels) * header.stored.bytes();
    return {pixels, repeated, at + 1 + bytes, file.slice(at + 1, bytes)};
}

/// Calls `use` for the runs one after another; a picture that is not run-length coded is one single run.
template <typename Use>
void forEachRun(const CheckedBytes& file, const TargaHeader& header, Use use) {
    const std::uint64_t all = header.sides.pixels();
    if (!header.runs) {
        const std::uint64_t bytes = all * header.stored.bytes();
        use(Run{all, false, header.dataAt + bytes, file.slice(header.dataAt, bytes)});
        return;
    }
    std::uint64_t at = header.dataAt;
    for (std::uint64_t done = 0; done < all;) {
        const Run run = runAt(file, header, at);
        if (run.pixels > all - done) refuse(Refusal::ImpossibleValue);
        use(run);
        done += run.pixels;
        at = run.next;
    }
}

bool libraryReadsRightly(const TargaHeader& header, const CheckedBytes& file) {
    if (file.byteAt(1) != 0 || header.fromRight || header.kind == PixelKind::Palette) return false;
    return header.stored.bits == 8 || header.stored.bits == 24 || header.stored.bits == 32;
}

std::uint8_t byteOf(Bytes bytes, std::size_t at) { return std::to_integer<std::uint8_t>(bytes[at]); }

unsigned wordOf(Bytes bytes) { return byteOf(bytes, 0) | static_cast<unsigned>(byteOf(bytes, 1)) << 8; }

std::uint8_t fiveBits(unsigned value) { return static_cast<std::uint8_t>(((value & 31U) * 255 + 15) / 31); }

Bgra colourOf(Bytes stored, const PixelForm& form) {
    if (form.grey) {
        const std::uint8_t level = byteOf(stored, 0);
        return {level, level, level, form.alpha ? byteOf(stored, 1) : std::uint8_t{255}};
    }
    if (form.bits >= 24) {
        return {byteOf(stored, 0), byteOf(stored, 1), byteOf(stored, 2),
                form.alpha ? byteOf(stored, 3) : std::uint8_t{255}};
    }
    const unsigned packed = wordOf(stored);
    const bool clear = form.alpha && (packed & 0x8000U) == 0;
    return {fiveBits(packed), fiveBits(packed >> 5), fiveBits(packed >> 10),
            clear ? std::uint8_t{0} : std::uint8_t{255}};
}

Bgra pixelOf(Bytes stored, const TargaHeader& header) {
    if (header.kind != PixelKind::Palette) return colourOf(stored, header.stored);
    const unsigned index = header.stored.bits == 8 ? byteOf(stored, 0) : wordOf(stored);
    const std::size_t entry = header.colours.bytes();
    const std::size_t at = (std::size_t{index} - header.firstIndex) * entry;
    if (index < header.firstIndex || at >= header.palette.size()) refuse(Refusal::ImpossibleValue);
    return colourOf(header.palette.subspan(at, entry), header.colours);
}

/// Puts pixels in the order in which the file stores them.
class Painter {
public:
    Painter(PlainTarga& into, const TargaHeader& header) : into_(into), header_(header) {}

    void put(Bgra pixel) {
        const Sides& sides = header_.sides;
        into_.put(header_.fromRight ? sides.width - 1 - x_ : x_, header_.fromTop ? y_ : sides.height - 1 - y_,
                  pixel);
        if (++x_ == sides.width) {
            x_ = 0;
            ++y_;
        }
    }

private:
    PlainTarga& into_;
    const TargaHeader& header_;
    std::uint32_t x_ = 0;
    std::uint32_t y_ = 0;
};

LoadableFile repaint(const CheckedBytes& file, const TargaHeader& header) {
    PlainTarga picture{header.sides, header.colours.alpha};
    Painter painter{picture, header};
    const std::size_t stored = header.stored.bytes();
    forEachRun(file, header, [&](const Run& run) {
        for (std::uint64_t i = 0; i < run.pixels; ++i) {
            const std::size_t at = run.repeated ? 0 : static_cast<std::size_t>(i) * stored;
            painter.put(pixelOf(run.stored.subspan(at, stored), header));
        }
    });
    return {FileKind::Tga, picture.take(), header.sides, std::nullopt};
}

} // namespace

LoadableFile makeLoadableTarga(std::vector<std::byte> file) {
    const CheckedBytes bytes{file};
    if (bytes.size() < headerBytes) refuse(Refusal::NotThisKind);
    const TargaHeader header = readHeader(bytes);
    if (!libraryReadsRightly(header, bytes)) return repaint(bytes, header);
    forEachRun(bytes, header, [](const Run&) {}); // all of them must be there, and none too many
    return {FileKind::Tga, std::move(file), header.sides, std::nullopt};
}

} // namespace pelrath
