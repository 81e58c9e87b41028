#pragma once

#include "imaging/block_decoder.hpp"
#include "imaging/checked_bytes.hpp"
#include "imaging/refusal.hpp"
#include "platform/dds_header.hpp"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace pelrath {

/// The kinds of file that can be loaded; the numbers are the library's.
enum class FileKind : std::uint32_t { Bmp = 0x0420, Jpg = 0x0425, Tga = 0x042D, Dds = 0x0437 };

/// A file that the library reads safely and rightly.
struct LoadableFile {
    FileKind readAs; ///< not always the kind of the original
    std::vector<std::byte> bytes;
    Sides sides;
    /// Where the library's own decoding is inexact: what the blocks at `blocksAt` are.
    std::optional<BlockFormat> blocks;

    static constexpr std::size_t blocksAt = sizeof(DdsHeader);
};

/// Checks every number of a file of `kind` against its bytes, and brings what the library refuses or
/// misreads into a form that it reads; the library trusts headers, so nothing unchecked may reach it.
/// Raises ImageLibraryError with the code that fits when the file does not hold water:
/// - BMP: header of 12, 40, 52, 56, 64, 108 or 124 bytes; 1, 4, 8, 16, 24 or 32 bits; palette, bit fields,
///   RLE4, RLE8; either row order. Alpha is kept where a mask names it, and where a 32-bit file without masks
///   has any in its fourth byte.
/// - TGA: palette, true colour and grey, run-length or not, 8, 15, 16, 24 or 32 bits, or one bit of grey, any
/// origin. Alpha is
/// kept
///   where the extension area says that it is useful, or else where the header claims it, or else where a
///   pixel's alpha byte is not 0; colours that were multiplied by it are divided again.
/// - DDS: DXT1, DXT3, DXT5, or plain pixels of 24 or 32 bits. Only level 0 is handed on, so that no later
/// save or scaling drags along a chain that
///   belongs to another picture; the bytes of every declared level must be there all the same.
/// - JPG: baseline, extended or progressive, at most 100 scans, grey or three channels; what follows its end
///   mark is left alone.
/// A side is 1 to 16384 pixels long, and there are no more than 2^27 pixels in all (see mostPixels).
/// What cannot start as `start` does, the first four bytes or all, is refused by requireStartOf() as well.
void requireStartOf(FileKind kind, Bytes start);
[[nodiscard]] LoadableFile makeLoadable(FileKind kind, std::vector<std::byte> file);

/// The checks of one kind each, in files of their own.
[[nodiscard]] LoadableFile makeLoadableBitmap(std::vector<std::byte> file);
[[nodiscard]] LoadableFile makeLoadableTarga(std::vector<std::byte> file);
[[nodiscard]] LoadableFile makeLoadableDds(std::vector<std::byte> file);
[[nodiscard]] LoadableFile makeLoadableJpeg(std::vector<std::byte> file);

} // namespace pelrath
