#pragma once

#include "imaging/library_images.hpp"

#include <cstdint>

namespace pelrath {

/// A copy of a picture in the image library, bound, for as long as it lives. What the library reports leaves
/// as ImageLibraryError.
class ImageCopy {
public:
    ImageCopy(const LibraryImages& images, std::uint32_t source);
    ~ImageCopy();
    ImageCopy(const ImageCopy&) = delete;
    ImageCopy& operator=(const ImageCopy&) = delete;

    void remove();

private:
    void discard();

    const LibraryImages& images_;
    std::uint32_t id_ = 0;
};

} // namespace pelrath
