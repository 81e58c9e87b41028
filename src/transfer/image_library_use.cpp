#include "transfer/image_library_use.hpp"

#include <utility>

namespace pelrath {

bool ImageLibraryUse::start() {
    if (imageLibraryInitialised_) return true;
    if (!facade_.checkImageLibraryVersion()) return false;
    imageLibraryInitialised_ = facade_.initImageLibrary();
    return imageLibraryInitialised_;
}

void ImageLibraryUse::shutDown() {
    imageLibraryInitialised_ = false;
    images_.shutDown();
    images_.check("ilShutDown");
}

LoadedImage::~LoadedImage() {
    if (id_ == 0) return;
    images_.remove(id_);
    (void)images_.readErrorCode(); // whoever wanted to know has called remove()
}

void LoadedImage::remove() {
    const std::uint32_t id = std::exchange(id_, 0);
    images_.bind(id);
    // The system takes its time to take back so much memory.
    facade_.longWork().run(facade_.boundSides().pixels(), [&] { images_.remove(id); });
    images_.check("ilDeleteImages");
}

} // namespace pelrath
