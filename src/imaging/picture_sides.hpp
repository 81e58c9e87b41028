#pragma once

#include "imaging/loadable_file.hpp"

namespace pelrath {

/// As many bytes of a file hold all that sidesOfPicture() looks at: a TGA file's longest palette does not
/// reach further.
inline constexpr std::size_t startOfPicture = std::size_t{1} << 19;

/// The sides of the picture in a DDS, BMP or TGA file that begins with these bytes, by its header alone.
/// Raises ImageLibraryError where that is impossible or of a kind that is not read.
[[nodiscard]] Sides sidesOfPicture(FileKind kind, Bytes start);

/// How many bytes such a BMP or TGA file has at least, by its header; 0 where only all of it tells, as in a
/// run-length coded one, and for other kinds. Raises as sidesOfPicture() does.
[[nodiscard]] std::uint64_t leastBytesOfPicture(FileKind kind, Bytes start);

} // namespace pelrath
