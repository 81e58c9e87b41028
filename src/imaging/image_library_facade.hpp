#pragma once

#include "imaging/bound_picture.hpp"
#include "imaging/bound_pixels.hpp"
#include "imaging/library_functions.hpp"
#include "imaging/library_images.hpp"
#include "imaging/long_work.hpp"
#include "imaging/refusal.hpp"
#include "imaging/save_image_options.hpp"
#include "imaging/trace.hpp"
#include "platform/message_boxes.hpp"
#include "platform/posix/files.hpp"

#include <cstdint>
#include <string>

namespace pelrath {

/// How messages speak of a picture that is to be loaded.
struct PictureWords {
    std::string name;                            ///< begins a sentence; empty: the file's own path
    std::string remedy = "copy or save it anew"; ///< what helps where it is damaged
};

/// The layer through which pictures are loaded, converted, scaled and saved. Its operations work on the
/// image that is bound in the library, whose images, error stack and settings are the process's own: one
/// thread, one operation at a time. An operation that fails says so in a critical message box, with the
/// library's code and, in a paragraph of its own, what is wrong with which file, and answers false, unless
/// said otherwise here.
class ImageLibraryFacade {
public:
    ImageLibraryFacade(MessageBoxes& boxes, SaveImageOptions& options,
                       const LibraryFunctions& library = imageLibrary());

    /// True when each part of the library reports version 160 or later.
    bool checkImageLibraryVersion();

    /// Starts the library; true. Raises ImageLibraryError instead of showing a message.
    bool initImageLibrary();

    /// Generates and binds a new image, hands its id out at once, and loads a DDS, BMP, TGA or JPG file, by
    /// its extension, into it. The caller removes the image, after a failure too. The pixels are exactly
    /// those of the file; a DDS file's chain is not kept. What cannot be true of a file of its kind fails
    /// before the library sees the file. An error that is not the library's leaves with its own number.
    bool loadImage(const std::string& fileName, std::uint32_t& imageId, const PictureWords& words = {});

    /// Sets the options for an OutputFileType and hands the type and the extension out. An index outside
    /// 0..4 changes nothing and is no failure.
    bool setSaveImageOptions(std::int32_t fileType, std::int32_t& imageType, std::string& extension);

    /// Converts the bound image as the options say, builds its levels if they want them (each is the whole
    /// picture, averaged by the box filter), and writes it as the options' image type, whatever extension the
    /// name has and whatever `imageType` says. The file appears whole or not at all; a file that was there
    /// stays as it was until then. Equal pictures give equal files. The blocks of a DDS file are those of
    /// LevelEncoder: of `known` ones, for as many levels as they are enough, each stays unless another comes
    /// nearer to the picture. What is only going to be read again need not be flushed.
    bool saveImage(std::int32_t imageType, const std::string& fileName, bool overwrite, Bytes known = {},
                   Durability durability = Durability::Flushed);

    /// Switches one of the library's modes.
    bool setLibraryFlag(std::uint32_t mode, bool enable);

    /// `format` and `dataType` are the library's numbers.
    bool convertImage(std::uint16_t format, std::int32_t dataType);

    /// Sides in pixels, to 16384, and no more than 2^27 pixels in all; 0 counts as 1. Filter index 0..8:
    /// nearest, linear, bilinear, box, triangle, bell, B spline, Lanczos, Mitchell; any other leaves the
    /// filter of an earlier call. The pixels are those of resample(); where the options are DXT1's, colours
    /// count as they are seen. True also when the library fails without a code.
    bool scaleImage(std::int32_t width, std::int32_t height, std::int16_t filterIndex);

    /// Of the bound image.
    [[nodiscard]] Sides boundSides() const { return picture_.sides(); }
    [[nodiscard]] AlphaUse boundAlpha() const { return alphaUseOf(boundPixels(library_)); }

    /// The code of the last library failure, for those who report what initImageLibrary() raised.
    [[nodiscard]] std::int32_t lastErrorCode() const { return lastErrorCode_; }

    [[nodiscard]] Trace& trace() { return trace_; }
    /// What shows that a large picture is at work.
    [[nodiscard]] LongWork& longWork() { return longWork_; }

private:
    struct FailureWords;
    template <typename Work>
    bool attempt(const FailureWords& words, Work work);

    void check() { images_.check("ImageLibraryFacade"); }
    std::string report(const char* prefix, std::int32_t code, const std::string& reason = {});

    void prepareBoundImage(bool overwrite);
    bool writeBoundImage(const std::string& fileName, bool overwrite, Bytes known, Durability durability);
    void scaleBoundImage(std::int32_t width, std::int32_t height, std::int16_t filterIndex);

    MessageBoxes& boxes_;
    SaveImageOptions& options_;
    const LibraryFunctions library_;
    LibraryImages images_;
    BoundPicture picture_;
    Trace trace_;
    LongWork longWork_;
    std::int32_t lastErrorCode_ = 0;
};

} // namespace pelrath
