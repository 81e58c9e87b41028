#pragma once

#include "imaging/image_library_facade.hpp"

#include <cstdint>

namespace pelrath {

/// A copy of a picture in the image library, bound, for as long as it lives. What the library reports leaves
/// as ImageLibraryError.
class ImageCopy {
public:
    ImageCopy(ImageLibraryFacade& facade, const LibraryImages& images, std::uint32_t source);
    ~ImageCopy();
    ImageCopy(const ImageCopy&) = delete;
    ImageCopy& operator=(const ImageCopy&) = delete;

    [[nodiscard]] std::uint32_t id() const { return id_; }
    /// Of the bound image, which it must be.
    void remove();

private:
    void discard();

    ImageLibraryFacade& facade_;
    const LibraryImages& images_;
    std::uint32_t id_ = 0;
};

} // namespace pelrath
