#pragma once

#include "imaging/image_library_facade.hpp"

#include <cstdint>

namespace pelrath {

/// The image library between the dialog's first need of it and the dialog's close.
class ImageLibraryUse {
public:
    ImageLibraryUse(ImageLibraryFacade& facade, const LibraryImages& images)
        : facade_(facade), images_(images) {}

    /// Starts the library unless it runs. False when it is of a wrong version, which has then been told; a
    /// failed start leaves as ImageLibraryError.
    bool start();
    /// An error code that the library leaves leaves as ImageLibraryError.
    void shutDown();

    [[nodiscard]] bool imageLibraryInitialised() const { return imageLibraryInitialised_; }

private:
    ImageLibraryFacade& facade_;
    const LibraryImages& images_;
    bool imageLibraryInitialised_ = false;
};

/// Loads a picture for as long as it lives; then, or with remove(), it is gone from the library.
class LoadedImage {
public:
    LoadedImage(ImageLibraryFacade& facade, const LibraryImages& images, const std::string& path,
                const PictureWords& words = {})
        : facade_(facade), images_(images), loaded_(facade.loadImage(path, id_, words)) {}
    ~LoadedImage();
    LoadedImage(const LoadedImage&) = delete;
    LoadedImage& operator=(const LoadedImage&) = delete;

    /// False when loading failed, which has then been told.
    [[nodiscard]] explicit operator bool() const { return loaded_; }
    [[nodiscard]] std::uint32_t id() const { return id_; }

    /// An error code that the library leaves leaves as ImageLibraryError.
    void remove();

private:
    ImageLibraryFacade& facade_;
    const LibraryImages& images_;
    std::uint32_t id_ = 0;
    bool loaded_;
};

} // namespace pelrath
