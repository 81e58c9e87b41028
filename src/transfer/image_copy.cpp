#include "transfer/image_copy.hpp"

#include "imaging/library_error.hpp"

#include <utility>

namespace pelrath {

ImageCopy::ImageCopy(ImageLibraryFacade& facade, const LibraryImages& images, std::uint32_t source)
    : facade_(facade), images_(images) {
    images_.bind(source);
    const std::uint64_t pixels = facade.boundSides().pixels();
    id_ = images_.generate();
    try {
        images_.check("ilGenImages");
        images_.bind(id_);
        images_.check("ilBindImage");
        bool copied = false;
        facade.longWork().run(pixels, [&] { copied = images_.copyFrom(source); });
        images_.check("ilCopyImage");
        if (!copied) throw ImageLibraryError{0, "ilCopyImage"};
    } catch (...) {
        discard();
        throw;
    }
}

ImageCopy::~ImageCopy() { discard(); }

void ImageCopy::discard() {
    if (id_ == 0) return;
    images_.remove(std::exchange(id_, 0));
    (void)images_.readErrorCode(); // another failure is on its way already
}

void ImageCopy::remove() {
    const std::uint32_t id = std::exchange(id_, 0);
    facade_.longWork().run(facade_.boundSides().pixels(), [&] { images_.remove(id); });
    images_.check("ilDeleteImages");
}

} // namespace pelrath
