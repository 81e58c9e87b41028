#include "imaging/image_library_facade.hpp"

#include "imaging/error_names.hpp"
#include "imaging/library_error.hpp"
#include "imaging/loadable_file.hpp"
#include "platform/posix/files.hpp"
#include "platform/text.hpp"

#include <IL/il.h>
#include <IL/ilu.h>
#include <IL/ilut.h>

#include <algorithm>
#include <array>
#include <new>
#include <optional>
#include <utility>
#include <vector>

namespace pelrath {

/// How an operation words its failures.
struct ImageLibraryFacade::FailureWords {
    const char* ofLibrary;
    const char* ofOthers;
    bool traced;
    std::string consequence; ///< a sentence without its full stop
};

namespace {

struct Output {
    std::int32_t imageType;
    const char* extension;
    std::uint16_t convertFormat;
    ILint dxtFormat; // 0: none
    const char* traceLine;
};

constexpr std::array outputs{
    Output{IL_BMP, ".bmp", IL_BGR, 0, ""},
    Output{IL_TGA, ".tga", IL_BGRA, 0, ""},
    Output{IL_JPG, ".jpg", IL_RGB, 0, ""},
    Output{IL_DDS, ".dds", IL_RGBA, IL_DXT1, "Setting DXT1 format done."},
    Output{IL_DDS, ".dds", IL_RGBA, IL_DXT5, "Setting DXT5 format done."},
};

std::optional<FileKind> kindOf(const std::string& fileName) {
    const std::string extension = upperCase(fileExtension(fileName));
    if (extension == "DDS") return FileKind::Dds;
    if (extension == "BMP") return FileKind::Bmp;
    if (extension == "TGA") return FileKind::Tga;
    if (extension == "JPG") return FileKind::Jpg;
    return std::nullopt;
}

/// A failure leaves as the library's code for it.
InputFile openPicture(const std::string& fileName) try {
    return InputFile{fileName};
} catch (const RuntimeError& error) {
    const bool missing = error.number() == static_cast<int>(ErrorNumber::FileNotFound);
    throw ImageLibraryError{
        IL_COULD_NOT_OPEN_FILE, "loadImage",
        error.description() +
            (missing ? ". Please extract it first, or choose the folder that holds it" : "")};
}

std::vector<std::byte> bytesOf(const InputFile& file, std::uint64_t most) try {
    std::vector<std::byte> bytes(static_cast<std::size_t>(std::min(file.size(), most)));
    file.readAt(0, bytes);
    return bytes;
} catch (const RuntimeError& error) {
    throw ImageLibraryError{IL_FILE_READ_ERROR, "loadImage", error.description()};
}

LoadableFile loadableFile(FileKind kind, const InputFile& file) try {
    // The largest picture, with room for what editors store beside the pixels.
    constexpr std::uint64_t mostBytes = mostPixels * 4 + (std::uint64_t{1} << 24);
    constexpr std::uint64_t startBytes = 4;
    requireStartOf(kind, bytesOf(file, startBytes));
    if (file.size() > mostBytes) refuse(Refusal::ImpossibleSides);
    return makeLoadable(kind, bytesOf(file, mostBytes));
} catch (const std::bad_alloc&) {
    refuse(Refusal::OutOfMemory);
}

void requireFree(const std::string& fileName, bool overwrite) {
    if (!overwrite && fileExists(fileName)) throw ImageLibraryError{IL_FILE_ALREADY_EXISTS, "saveImage"};
}

} // namespace

ImageLibraryFacade::ImageLibraryFacade(MessageBoxes& boxes, SaveImageOptions& options,
                                       const LibraryFunctions& library)
    : boxes_(boxes), options_(options), library_(library), images_(library),
      picture_(library_, images_, options) {}

bool ImageLibraryFacade::checkImageLibraryVersion() {
    constexpr ILint oldest = 160;
    const ILint il = library_.ilGetInteger(IL_VERSION_NUM);
    const ILint ilu = library_.iluGetInteger(ILU_VERSION_NUM);
    const ILint ilut = library_.ilutGetInteger(ILUT_VERSION_NUM);
    if (il >= oldest && ilu >= oldest && ilut >= oldest) return true;
    boxes_.critical("Invalid Graphic Image Library version", "Devil version check");
    return false;
}

bool ImageLibraryFacade::initImageLibrary() try {
    library_.ilInit();
    library_.iluInit();
    // The renderer that exists everywhere; its two texture compression modes have the same numbers as those
    // of the others.
    library_.ilutRenderer(ILUT_OPENGL);
    library_.ilutEnable(ILUT_GL_USE_S3TC);
    check();
    library_.ilutEnable(ILUT_GL_GEN_S3TC);
    check();
    return true;
} catch (const ImageLibraryError& error) {
    lastErrorCode_ = error.code();
    throw;
}

bool ImageLibraryFacade::loadImage(const std::string& fileName, std::uint32_t& imageId,
                                   const PictureWords& words) try {
    library_.ilGenImages(1, &imageId);
    check();
    library_.ilBindImage(imageId);
    check();
    const std::optional<FileKind> kind = kindOf(fileName);
    if (!kind) {
        throw ImageLibraryError{images_.readErrorCode(), "loadImage",
                                fileName + " must end in .dds, .bmp, .tga or .jpg to be read"};
    }
    const InputFile file = openPicture(fileName);
    longWork_.run(file.size() / bytesPerTexel, [&] { picture_.load(loadableFile(*kind, file), fileName); });
    return true;
} catch (const ImageLibraryError& error) {
    const std::string& name = words.name.empty() ? fileName : words.name;
    const std::string reason =
        error.reason().empty() ? name + " " + loadAdvice(error.code(), words.remedy) : error.reason();
    report("ilLoadImage Error Number: ", error.code(), reason);
    return false;
}

bool ImageLibraryFacade::setSaveImageOptions(std::int32_t fileType, std::int32_t& imageType,
                                             std::string& extension) {
    return attempt({"setSaveImageOptions Error Number: ", "setSaveImageOptions Error : ", false, ""}, [&] {
        if (fileType < 0 || fileType >= static_cast<std::int32_t>(outputs.size())) return true;
        const Output& output = outputs[static_cast<std::size_t>(fileType)];
        imageType = output.imageType;
        extension = output.extension;
        options_.convertFormat = output.convertFormat;
        options_.convertType = IL_UNSIGNED_BYTE;
        if (output.dxtFormat != 0) {
            library_.ilSetInteger(IL_DXTC_FORMAT, output.dxtFormat);
            check();
            trace_.traceMessage(output.traceLine);
        }
        return true;
    });
}

bool ImageLibraryFacade::saveImage([[maybe_unused]] std::int32_t imageType, const std::string& fileName,
                                   bool overwrite, Bytes known, Durability durability) {
    return attempt({"ilSave Error Number: ", "ImageSave Error : ", true, fileName + " was not written"}, [&] {
        prepareBoundImage(overwrite);
        if (!writeBoundImage(fileName, overwrite, known, durability)) return false;
        trace_.traceMessage("ilSave done sucessfully.");
        return true;
    });
}

void ImageLibraryFacade::prepareBoundImage(bool overwrite) {
    if (options_.imageType == IL_JPG) {
        if (options_.jpgQuality < 0 || options_.jpgQuality > 65535) {
            throw makeError(ErrorNumber::Overflow, "saveImage");
        }
        constexpr ILint best = 99; // the library refuses 100
        library_.ilSetInteger(IL_JPG_QUALITY, options_.jpgQuality == best + 1 ? best : options_.jpgQuality);
        trace_.traceMessage("Setting Jpg compression done.");
    }
    if (!convertImage(options_.convertFormat, options_.convertType)) check();
    if (options_.imageType == IL_DDS && options_.buildMipmaps) {
        bool built = false;
        longWork_.run(picture_.sides().pixels(), [&] { built = picture_.buildChain(); });
        if (built) {
            trace_.traceMessage("iluBuildMipmaps done.");
        } else {
            check();
        }
    }
    if (!setLibraryFlag(IL_FILE_OVERWRITE, overwrite)) check();
}

bool ImageLibraryFacade::writeBoundImage(const std::string& fileName, bool overwrite, Bytes known,
                                         Durability durability) {
    // Before the library looks for itself: it opens the file for that, which a pipe would never let it.
    requireFree(fileName, overwrite);
    bool written = false;
    longWork_.run(picture_.sides().pixels(), [&] {
        const std::optional<std::vector<std::byte>> file = picture_.save(fileName, known);
        if (!file) return;
        requireFree(fileName, overwrite); // it may have come meanwhile
        const std::array<Bytes, 1> pieces{*file};
        replaceFile(fileName, pieces, durability, overwrite ? OldFile::Replaced : OldFile::Kept);
        written = true;
    });
    return written;
}

bool ImageLibraryFacade::setLibraryFlag(std::uint32_t mode, bool enable) {
    const std::string call = enable ? "ilEnable" : "ilDisable";
    const bool done = (enable ? library_.ilEnable(mode) : library_.ilDisable(mode)) != 0;
    if (done) {
        trace_.traceMessage(call + " overwrite done sucessfully.");
        return true;
    }
    const std::int32_t code = images_.readErrorCode();
    report("ilEnable/Disable Error Number: ", code);
    trace_.traceMessage(libraryFailureText(call + " Error Number: ", code));
    return false;
}

bool ImageLibraryFacade::convertImage(std::uint16_t format, std::int32_t dataType) {
    bool converted = false;
    longWork_.run(picture_.sides().pixels(),
                  [&] { converted = library_.ilConvertImage(format, static_cast<ILenum>(dataType)) != 0; });
    if (converted) {
        trace_.traceMessage("ilConvertImage done sucessfully.");
        return true;
    }
    trace_.traceMessage(report("ilConvertImage Error Number: ", images_.readErrorCode()));
    return false;
}

bool ImageLibraryFacade::scaleImage(std::int32_t width, std::int32_t height, std::int16_t filterIndex) {
    return attempt(
        {"ilScaleImage Error Number: ", "ImageSave Error : ", true, "The picture keeps its size"}, [&] {
            scaleBoundImage(width, height, filterIndex);
            trace_.traceMessage("Image scaled to :" + std::to_string(width) + "x" + std::to_string(height));
            return true;
        });
}

void ImageLibraryFacade::scaleBoundImage(std::int32_t width, std::int32_t height, std::int16_t filterIndex) {
    const ILint depth = library_.ilGetInteger(IL_IMAGE_DEPTH);
    check();
    constexpr auto last = static_cast<std::int16_t>(ScaleFilter::Mitchell);
    if (filterIndex >= 0 && filterIndex <= last) picture_.setFilter(static_cast<ScaleFilter>(filterIndex));
    check();
    trace_.traceMessage("Scale Filter set to : ");
    // The library takes 0 for 1, and does not survive sides that it cannot hold.
    if (!possibleSides(std::max(width, 1), std::max(height, 1)) || width < 0 || height < 0) {
        throw ImageLibraryError{IL_BAD_DIMENSIONS, "scaleImage",
                                "A picture cannot have " + std::to_string(width) + " x " +
                                    std::to_string(height) +
                                    " pixels; possible are sides of 1 to 16384, and 134217728 pixels in all"};
    }
    const Sides sides{static_cast<std::uint32_t>(std::max(width, 1)),
                      static_cast<std::uint32_t>(std::max(height, 1))};
    bool scaled = false;
    longWork_.run(picture_.sides().pixels() + sides.pixels(),
                  [&] { scaled = picture_.scale(sides, static_cast<ILuint>(depth)); });
    if (!scaled) check();
}

/// Runs an operation and reports what it raises.
template <typename Work>
bool ImageLibraryFacade::attempt(const FailureWords& words, Work work) {
    const auto reportOther = [&](const RuntimeError& error) {
        boxes_.critical(words.ofOthers + std::to_string(error.number()) + " " + error.description(),
                        programTitle);
        return false;
    };
    try {
        return work();
    } catch (const ImageLibraryError& error) {
        const std::string text = report(words.ofLibrary, error.code(),
                                        error.reason().empty() ? words.consequence : error.reason());
        if (words.traced) trace_.traceMessage(text);
        return false;
    } catch (const RuntimeError& error) {
        return reportOther(error);
    } catch (const std::bad_alloc&) {
        return reportOther(makeError(ErrorNumber::OutOfMemory, "ImageLibraryFacade"));
    }
}

/// Shows the failure's text, with the reason in a line of its own, and answers the text.
std::string ImageLibraryFacade::report(const char* prefix, std::int32_t code, const std::string& reason) {
    lastErrorCode_ = code;
    std::string text = libraryFailureText(prefix, code);
    boxes_.critical(reason.empty() ? text : text + "\r\n\r\n" + reason + ".", programTitle);
    return text;
}

} // namespace pelrath
