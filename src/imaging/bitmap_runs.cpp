#include "imaging/bitmap_runs.hpp"

namespace pelrath {

namespace {

/// Walks over the picture as the codes say, from the lower left (the upper left in a file whose top row
/// comes first).
class RunPainter {
public:
    RunPainter(PlainTarga& picture, const CheckedBytes& file, const BitmapHeader& header)
        : picture_(picture), file_(file), header_(header), at_(header.dataAt) {}

    void paint() {
        // An end mark may be missing when nothing is left to be painted.
        while (!finished_ && !(allPainted() && atEndOfFile())) {
            const unsigned count = next();
            const unsigned second = next();
            if (count != 0) {
                repeat(count, second);
            } else {
                escape(second);
            }
        }
    }

private:
    [[nodiscard]] bool allPainted() const {
        return y_ >= header_.sides.height || (y_ == header_.sides.height - 1 && x_ >= header_.sides.width);
    }
    [[nodiscard]] bool atEndOfFile() const { return at_ + 2 > file_.size(); }
    [[nodiscard]] bool halfBytes() const { return header_.coding == BitmapCoding::Rle4; }

    unsigned next() { return file_.byteAt(at_++); }

    void escape(unsigned code) {
        switch (code) {
        case 0:
            x_ = 0;
            ++y_;
            break;
        case 1:
            finished_ = true;
            break;
        case 2:
            x_ += next();
            y_ += next();
            break;
        default:
            copy(code);
        }
    }

    void repeat(unsigned count, unsigned colours) {
        for (unsigned i = 0; i < count; ++i) {
            put(halfBytes() ? half(colours, i) : colours);
        }
    }

    void copy(unsigned count) {
        const std::uint64_t bytes = halfBytes() ? (count + 1) / 2 : count;
        const Bytes indices = file_.slice(at_, bytes);
        for (unsigned i = 0; i < count; ++i) {
            put(halfBytes() ? half(std::to_integer<unsigned>(indices[i / 2]), i)
                            : std::to_integer<unsigned>(indices[i]));
        }
        at_ += bytes + bytes % 2; // the codes start at even places
    }

    static unsigned half(unsigned byte, unsigned i) { return i % 2 == 0 ? byte >> 4 : byte & 15U; }

    void put(unsigned index) {
        if (y_ >= header_.sides.height) refuse(Refusal::ImpossibleValue);
        // Writers pad a row's last run; what hangs over its end is nobody's.
        if (x_ >= header_.sides.width) return;
        if (index >= header_.palette.size()) refuse(Refusal::ImpossibleValue);
        picture_.put(x_++, header_.topRowFirst ? y_ : header_.sides.height - 1 - y_, header_.palette[index]);
    }

    PlainTarga& picture_;
    const CheckedBytes& file_;
    const BitmapHeader& header_;
    std::uint64_t at_;
    std::uint32_t x_ = 0;
    std::uint32_t y_ = 0;
    bool finished_ = false;
};

void fill(PlainTarga& picture, Bgra colour) {
    for (std::uint32_t y = 0; y < picture.sides().height; ++y) {
        for (std::uint32_t x = 0; x < picture.sides().width; ++x) {
            picture.put(x, y, colour);
        }
    }
}

} // namespace

void paintRuns(PlainTarga& picture, const CheckedBytes& file, const BitmapHeader& header) {
    fill(picture, header.palette.front());
    RunPainter{picture, file, header}.paint();
}

} // namespace pelrath
