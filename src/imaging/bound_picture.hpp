#pragma once

#include "imaging/bound_pixels.hpp"
#include "imaging/library_functions.hpp"
#include "imaging/library_images.hpp"
#include "imaging/refusal.hpp"
#include "imaging/resample.hpp"
#include "imaging/save_image_options.hpp"
#include "platform/posix/files.hpp"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace pelrath {

struct LoadableFile;

/// The library's bound image, with the pixels and blocks as they should be where the library's own are not.
/// Shows no message; failures leave as ImageLibraryError.
class BoundPicture {
public:
    /// All belong to the caller.
    BoundPicture(const LibraryFunctions& library, const LibraryImages& images,
                 const SaveImageOptions& options)
        : library_(library), images_(images), options_(options) {}

    [[nodiscard]] Sides sides() const;

    /// Loads a file into it; messages of the library's own call it `fileName`.
    void load(const LoadableFile& file, const std::string& fileName);

    /// From now on scale() uses this filter, whatever image is bound.
    void setFilter(ScaleFilter filter);
    /// Scales as resample() does; where the options are DXT1's, colours count as they are seen. False where
    /// the library fails, and the picture keeps its sides.
    [[nodiscard]] bool scale(Sides sides, std::uint32_t depth);

    /// Builds the levels below it, box-filtered. False where the library fails.
    [[nodiscard]] bool buildChain();

    /// The file that saves it as the options' image type, whole. Nothing where the library fails without a
    /// code. See ImageLibraryFacade::saveImage().
    [[nodiscard]] std::optional<std::vector<std::byte>> save(const std::string& fileName, Bytes known);

private:
    void putExactPixels(const LoadableFile& file);
    [[nodiscard]] ColourUnderAlpha coloursInForce() const;
    [[nodiscard]] std::optional<std::vector<std::byte>> savedByLibrary(const std::string& fileName,
                                                                       Sides sides);
    [[nodiscard]] std::vector<Pixels> levelsToCompress();
    template <typename Work>
    void forEachLevel(std::uint32_t levels, Work work);
    void bindWholeImage();
    [[nodiscard]] bool librarySaves(const std::string& fileName);
    void discardErrors();

    const LibraryFunctions& library_;
    const LibraryImages& images_;
    const SaveImageOptions& options_;
};

} // namespace pelrath
