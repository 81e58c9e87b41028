#include "imaging/loadable_file.hpp"
#include "imaging/plain_targa.hpp"
#include "imaging/targa_header.hpp"

#include <algorithm>
#include <utility>

namespace pelrath {

namespace {

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

bool anyAlphaByteSet(const CheckedBytes& file, const TargaHeader& header) {
    if (header.kind == PixelKind::Palette) return anyLastByteSet(header.palette, header.colours.bytes());
    bool any = false;
    forEachRun(file, header,
               [&](const Run& run) { any = any || anyLastByteSet(run.stored, header.stored.bytes()); });
    return any;
}

/// Many writers of alpha do not claim it. So without any claim a pixel's last byte is alpha unless it is 0 in
/// all of them, where it is spare.
bool hasAlpha(const CheckedBytes& file, const TargaHeader& header) {
    const bool alphaByte = header.colours.hasAlphaByte();
    if (header.alphaClaim == AlphaClaim::None) return false;
    if (header.alphaClaim == AlphaClaim::NotMade) return alphaByte && anyAlphaByteSet(file, header);
    return alphaByte || header.colours.hasAlphaBit();
}

/// A file's pixels, one by one.
class PixelReader {
public:
    PixelReader(const TargaHeader& header, bool alpha) : header_(header), alpha_(alpha) {}

    [[nodiscard]] bool alpha() const { return alpha_; }
    [[nodiscard]] bool premultiplied() const {
        return alpha_ && header_.alphaClaim == AlphaClaim::Premultiplied;
    }

    [[nodiscard]] Bgra pixel(Bytes stored) const {
        const Bgra colour = colourOf(header_.kind == PixelKind::Palette ? entry(stored) : stored);
        return premultiplied() ? divided(colour) : colour;
    }

private:
    [[nodiscard]] Bytes entry(Bytes stored) const {
        const auto index = static_cast<std::size_t>(littleEndian(stored));
        const std::size_t bytes = header_.colours.bytes();
        const std::size_t at = (index - header_.firstIndex) * bytes;
        if (index < header_.firstIndex || at >= header_.palette.size()) refuse(Refusal::ImpossibleValue);
        return header_.palette.subspan(at, bytes);
    }

    [[nodiscard]] Bgra colourOf(Bytes stored) const {
        const PixelForm& form = header_.colours;
        const auto byte = [=](std::size_t at) { return std::to_integer<std::uint8_t>(stored[at]); };
        const std::uint8_t last = alpha_ && form.hasAlphaByte() ? byte(stored.size() - 1) : std::uint8_t{255};
        if (form.grey) return {byte(0), byte(0), byte(0), last};
        if (form.bits >= 24) return {byte(0), byte(1), byte(2), last};
        const std::uint64_t packed = littleEndian(stored);
        const auto fiveBits = [=](unsigned shift) { return scaledToByte(packed >> shift & 31U, 31); };
        const bool clear = alpha_ && (packed & 0x8000U) == 0;
        return {fiveBits(0), fiveBits(5), fiveBits(10), clear ? std::uint8_t{0} : std::uint8_t{255}};
    }

    /// A colour that was multiplied by its alpha, as it was before.
    static Bgra divided(Bgra colour) {
        const unsigned alpha = colour.alpha;
        if (alpha == 0) return colour;
        const auto channel = [=](unsigned value) { return scaledToByte(std::min(value, alpha), alpha); };
        return {channel(colour.blue), channel(colour.green), channel(colour.red), colour.alpha};
    }

    const TargaHeader& header_;
    bool alpha_;
};

bool libraryReadsRightly(const CheckedBytes& file, const TargaHeader& header, const PixelReader& reader) {
    if (file.byteAt(1) != 0 || header.fromRight || header.kind == PixelKind::Palette) return false;
    const bool plainAlpha = reader.alpha() && !reader.premultiplied();
    return header.stored.bits == 8 || header.stored.bits == 24 || (header.stored.bits == 32 && plainAlpha);
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

LoadableFile repaint(const CheckedBytes& file, const TargaHeader& header, const PixelReader& reader) {
    PlainTarga picture{header.sides, reader.alpha()};
    Painter painter{picture, header};
    const std::size_t stored = header.stored.bytes();
    forEachRun(file, header, [&](const Run& run) {
        for (std::uint64_t i = 0; i < run.pixels; ++i) {
            const std::size_t at = run.repeated ? 0 : static_cast<std::size_t>(i) * stored;
            painter.put(reader.pixel(run.stored.subspan(at, stored)));
        }
    });
    return {FileKind::Tga, picture.take(), header.sides, std::nullopt};
}

/// Black and white: each row starts with a byte of its own, whose highest bit is the first pixel.
LoadableFile repaintBits(const CheckedBytes& file, const TargaHeader& header) {
    const std::uint64_t rowBytes = (header.sides.width + 7) / 8;
    const Bytes bits = file.slice(header.dataAt, rowBytes * header.sides.height);
    PlainTarga picture{header.sides, false};
    Painter painter{picture, header};
    for (std::size_t y = 0; y < header.sides.height; ++y) {
        for (std::size_t x = 0; x < header.sides.width; ++x) {
            const auto byte = std::to_integer<unsigned>(bits[y * rowBytes + x / 8]);
            const auto grey = static_cast<std::uint8_t>((byte >> (7 - x % 8) & 1U) * 255);
            painter.put({grey, grey, grey});
        }
    }
    return {FileKind::Tga, picture.take(), header.sides, std::nullopt};
}

} // namespace

LoadableFile makeLoadableTarga(std::vector<std::byte> file) {
    const CheckedBytes bytes{file};
    const TargaHeader header = readTargaHeader(bytes);
    if (header.stored.bits == 1) return repaintBits(bytes, header);
    const PixelReader reader{header, hasAlpha(bytes, header)};
    if (!libraryReadsRightly(bytes, header, reader)) return repaint(bytes, header, reader);
    forEachRun(bytes, header, [](const Run&) {}); // all of them must be there, and none too many
    return {FileKind::Tga, std::move(file), header.sides, std::nullopt};
}

} // namespace pelrath
