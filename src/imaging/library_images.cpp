#include "imaging/library_images.hpp"

#include "imaging/library_error.hpp"

namespace pelrath {

std::uint32_t LibraryImages::generate() const {
    std::uint32_t image = 0;
    library_.ilGenImages(1, &image);
    return image;
}

std::int32_t LibraryImages::readErrorCode() const { return static_cast<std::int32_t>(library_.ilGetError()); }

void LibraryImages::check(const char* source) const {
    const std::int32_t code = readErrorCode();
    if (code != 0) throw ImageLibraryError{code, source};
}

} // namespace pelrath
