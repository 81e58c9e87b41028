#pragma once

#include "imaging/library_functions.hpp"

#include <cstdint>

namespace pelrath {

/// The library calls that the facade's callers make themselves. The bound image, the error stack and the
/// ids belong to the library and are shared by all.
class LibraryImages {
public:
    explicit LibraryImages(const LibraryFunctions& library = imageLibrary()) : library_(library) {}

    /// A new, empty image; the caller removes it.
    [[nodiscard]] std::uint32_t generate() const;
    void bind(std::uint32_t image) const { library_.ilBindImage(image); }
    /// Makes the bound image a copy of `source`; false when the library refuses.
    bool copyFrom(std::uint32_t source) const { return library_.ilCopyImage(source) != 0; }
    void remove(std::uint32_t image) const { library_.ilDeleteImages(1, &image); }

    /// Takes the newest code off the error stack; 0 when it is empty.
    [[nodiscard]] std::int32_t readErrorCode() const;
    /// Raises ImageLibraryError with the newest code, if there is one.
    void check(const char* source) const;

    void shutDown() const { library_.ilShutDown(); }

private:
    const LibraryFunctions library_;
};

} // namespace pelrath
