#pragma once

#include "imaging/bitmap_header.hpp"

namespace pelrath {

/// Paints the picture of a run-length coded BMP file (RLE4 or RLE8). What the runs leave out takes the
/// palette's first colour. Raises ImageLibraryError for data that end before the picture does, that go on
/// beyond its last row, or that name a colour outside the palette.
void paintRuns(PlainTarga& picture, const CheckedBytes& file, const BitmapHeader& header);

} // namespace pelrath
