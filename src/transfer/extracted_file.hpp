#pragma once

#include "archive/image_file_kind.hpp"
#include "controls/signal.hpp"

#include <cstdint>
#include <string>

namespace pelrath {

/// A file of the chosen texture in the Export/Import folder.
struct ExtractedFile {
    std::string path;
    ImageFileKind kind = ImageFileKind::Bmp;
    std::int16_t level = 0; ///< the first that is in it
};

/// What becomes of the files of an extraction.
struct ExtractionNotices {
    Signal<const ExtractedFile&> written;    ///< it is in place
    Signal<const ExtractedFile&> handedOver; ///< an editor is starting with it
};

} // namespace pelrath
