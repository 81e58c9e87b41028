#include "imaging/image_library_facade.hpp"

#include "imaging/block_decoder.hpp"
#include "imaging/bound_pixels.hpp"
#include "imaging/chain_encoder.hpp"
#include "imaging/dds_header.hpp"
#include "imaging/error_names.hpp"
#include "imaging/library_error.hpp"
#include "imaging/loadable_file.hpp"
#include "imaging/memory_files.hpp"
#include "imaging/resample.hpp"
#include "imaging/saved_file.hpp"
#include "platform/files.hpp"
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

/// By ScaleFilter.
constexpr std::array<ILenum, 9> scaleFilters{
    ILU_NEAREST,    ILU_LINEAR,        ILU_BILINEAR,       ILU_SCALE_BOX,      ILU_SCALE_TRIANGLE,
    ILU_SCALE_BELL, ILU_SCALE_BSPLINE, ILU_SCALE_LANCZOS3, ILU_SCALE_MITCHELL,
};

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

/// What follows the name's last dot, in upper case.
std::string extensionOf(const std::string& fileName) {
    const std::size_t dot = fileName.rfind('.');
    return dot == std::string::npos ? std::string{} : upperCase(std::string_view{fileName}.substr(dot + 1));
}

std::optional<FileKind> kindOf(const std::string& fileName) {
    const std::string extension = extensionOf(fileName);
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

/// False for pixels that the library keeps in another form than those they come from.
bool canReplace(const Pixels& target, const Pixels& source) {
    const bool alike = source.format == target.format && source.fromTop == target.fromTop;
    return alike && !source.values.empty() && !target.values.empty();
}

bool isQuarter(const Sides& of, const Sides& whole) {
    return of.width * 4 == whole.width && of.height * 4 == whole.height;
}

/// Leaves a file alone whose levels are not those that the blocks are of.
void putBlocks(Bytes blocks, std::vector<std::byte>& file) {
    if (file.size() == LoadableFile::blocksAt + blocks.size()) {
        std::ranges::copy(blocks, file.begin() + LoadableFile::blocksAt);
    }
}

/// With the one filter that is fast, and reads nothing beside the picture; what is made is replaced anyway.
template <typename Call>
bool withNearestFilter(const LibraryFunctions& library, Call call) {
    const auto before = static_cast<ILuint>(library.iluGetInteger(ILU_FILTER));
    library.iluImageParameter(ILU_FILTER, ILU_NEAREST);
    const bool done = call() != 0;
    library.iluImageParameter(ILU_FILTER, before);
    return done;
}

void requireFree(const std::string& fileName, bool overwrite) {
    if (!overwrite && fileExists(fileName)) throw ImageLibraryError{IL_FILE_ALREADY_EXISTS, "saveImage"};
}

} // namespace

ImageLibraryFacade::ImageLibraryFacade(MessageBoxes& boxes, SaveImageOptions& options,
                                       const LibraryFunctions& library)
    : boxes_(boxes), options_(options), library_(library), images_(library) {}

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
    longWork_.run(file.size() / bytesPerTexel, [&] { loadChecked(loadableFile(*kind, file), fileName); });
    return true;
} catch (const ImageLibraryError& error) {
    const std::string& name = words.name.empty() ? fileName : words.name;
    const std::string reason =
        error.reason().empty() ? name + " " + loadAdvice(error.code(), words.remedy) : error.reason();
    report("ilLoadImage Error Number: ", error.code(), reason);
    return false;
}

void ImageLibraryFacade::loadChecked(const LoadableFile& file, const std::string& fileName) {
    const ReadingFromMemory reading{file.bytes};
    const bool loaded = library_.ilLoad(static_cast<ILenum>(file.readAs), fileName.c_str()) != 0;
    // A load can answer true with pixels missing; then only the error stack says so.
    const std::int32_t code = images_.readErrorCode();
    if (!loaded || code != 0) {
        discardErrors();
        throw ImageLibraryError{code, "loadImage"};
    }
    const Sides sides = boundSides();
    if (sides.width != file.sides.width || sides.height != file.sides.height) {
        throw ImageLibraryError{IL_INTERNAL_ERROR, "loadImage"};
    }
    if (file.blocks) putExactPixels(file);
}

void ImageLibraryFacade::putExactPixels(const LoadableFile& file) {
    const bool asExpected = library_.ilGetInteger(IL_IMAGE_FORMAT) == IL_RGBA &&
                            library_.ilGetInteger(IL_IMAGE_TYPE) == IL_UNSIGNED_BYTE &&
                            library_.ilGetInteger(IL_IMAGE_ORIGIN) == IL_ORIGIN_UPPER_LEFT;
    ILubyte* const pixels = library_.ilGetData();
    if (!asExpected || pixels == nullptr) throw ImageLibraryError{IL_INTERNAL_ERROR, "loadImage"};
    const std::span<ILubyte> all{pixels, static_cast<std::size_t>(file.sides.pixels()) * bytesPerTexel};
    decodeLevel(*file.blocks, Bytes{file.bytes}.subspan(LoadableFile::blocksAt), file.sides.width,
                file.sides.height, std::as_writable_bytes(all));
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
                                   bool overwrite, Bytes known) {
    return attempt({"ilSave Error Number: ", "ImageSave Error : ", true, fileName + " was not written"}, [&] {
        prepareBoundImage(overwrite);
        if (!writeBoundImage(fileName, overwrite, known)) return false;
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
        longWork_.run(boundSides().pixels(), [&] { built = buildChain(); });
        if (built) {
            trace_.traceMessage("iluBuildMipmaps done.");
        } else {
            check();
        }
    }
    if (!setLibraryFlag(IL_FILE_OVERWRITE, overwrite)) check();
}

/// The library's levels drop pixels instead of averaging them.
bool ImageLibraryFacade::buildChain() {
    if (!withNearestFilter(library_, library_.iluBuildMipmaps)) return false;
    const Pixels whole = boundPixels(library_);
    Pixels source = whole;
    const auto below = static_cast<std::uint32_t>(library_.ilGetInteger(IL_NUM_MIPMAPS));
    forEachLevel(below + 1, [&](const Pixels& level) {
        if (level.values.data() == whole.values.data() || !canReplace(level, source)) return;
        resample(source, ScaleFilter::Box, level, coloursInForce());
        // The levels below come from this one, rounded once, within a step of what the whole picture gives.
        if (isQuarter(level.sides, whole.sides)) source = level;
    });
    return true;
}

bool ImageLibraryFacade::writeBoundImage(const std::string& fileName, bool overwrite, Bytes known) {
    // Before the library looks for itself: it opens the file for that, which a pipe would never let it.
    requireFree(fileName, overwrite);
    bool written = false;
    longWork_.run(boundSides().pixels(), [&] {
        const std::optional<std::vector<std::byte>> file = savedFile(fileName, known);
        if (!file) return;
        requireFree(fileName, overwrite); // it may have come meanwhile
        const std::array<Bytes, 1> pieces{*file};
        replaceFile(fileName, pieces, Durability::Flushed);
        written = true;
    });
    return written;
}

/// Nothing where the library fails without a code.
std::optional<std::vector<std::byte>> ImageLibraryFacade::savedFile(const std::string& fileName,
                                                                    Bytes known) {
    const Sides sides = boundSides();
    const bool dds = options_.imageType == IL_DDS;
    std::optional<ChainEncoder> encoder;
    if (dds) startEncoding(encoder, known);
    WritingToMemory writing;
    const bool saved = librarySaves(fileName);
    bindWholeImage();
    const std::int32_t code = images_.readErrorCode();
    discardErrors();
    if (code != 0) throw ImageLibraryError{code, "saveImage"};
    if (!saved) return std::nullopt;
    if (writing.outOfMemory()) throw ImageLibraryError{IL_OUT_OF_MEMORY, "saveImage"};
    std::vector<std::byte> file = writing.take();
    if (!isWholeFile(options_.imageType, sides, file)) {
        throw ImageLibraryError{IL_FILE_WRITE_ERROR, "saveImage"};
    }
    // An earlier save may have left its chain on the image.
    if (dds && !options_.buildMipmaps) dropChain(sides, file);
    if (options_.imageType == IL_TGA) finishTarga(sides, options_.targaFirstRow, file);
    if (encoder) putBlocks(encoder->finish(), file);
    return file;
}

/// Begins to compress the levels that are going to be saved: the library only reads their pixels meanwhile.
void ImageLibraryFacade::startEncoding(std::optional<ChainEncoder>& encoder, Bytes known) {
    const auto below = static_cast<std::uint32_t>(library_.ilGetInteger(IL_NUM_MIPMAPS));
    std::vector<Pixels> levels;
    forEachLevel(options_.buildMipmaps ? below + 1 : 1, [&](const Pixels& level) {
        if (level.format == IL_RGBA && !level.values.empty()) levels.push_back(level);
    });
    const bool dxt1 = library_.ilGetInteger(IL_DXTC_FORMAT) == IL_DXT1;
    encoder.emplace(dxt1 ? BlockFormat::Dxt1 : BlockFormat::Dxt5, levels, known);
    encoder->start();
}

/// Saving a chain leaves its last level as the one that the next call would work on.
void ImageLibraryFacade::bindWholeImage() {
    library_.ilBindImage(static_cast<std::uint32_t>(library_.ilGetInteger(IL_CUR_IMAGE)));
}

/// Looks at the bound image and at the levels below it in turn. The whole image is bound afterwards.
template <typename Work>
void ImageLibraryFacade::forEachLevel(std::uint32_t levels, Work work) {
    for (std::uint32_t level = 0; level < levels; ++level) {
        // The library counts from the active level.
        if (level > 0 && library_.ilActiveMipmap(1) == 0) {
            discardErrors();
            break;
        }
        work(boundPixels(library_));
    }
    if (levels > 1) bindWholeImage();
}

bool ImageLibraryFacade::librarySaves(const std::string& fileName) {
    // By the name alone the library would choose the type by the extension, and a texture keeps its own name
    // whatever it is saved as.
    const bool nameSaysType =
        options_.extension.empty() || "." + extensionOf(fileName) == upperCase(options_.extension);
    if (nameSaysType) return library_.ilSaveImage(fileName.c_str()) != 0;
    return library_.ilSave(static_cast<ILenum>(options_.imageType), fileName.c_str()) != 0;
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
    longWork_.run(boundSides().pixels(),
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
    if (filterIndex >= 0 && filterIndex < static_cast<std::int16_t>(scaleFilters.size())) {
        library_.iluImageParameter(ILU_FILTER, scaleFilters[static_cast<std::size_t>(filterIndex)]);
    }
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
    longWork_.run(boundSides().pixels() + sides.pixels(),
                  [&] { scaled = filterBoundImage(sides, static_cast<ILuint>(depth)); });
    if (!scaled) check();
}

/// The library's own scaling drops pixels where it shrinks, and is a pixel off or reads what is not the
/// picture's where it enlarges; so it takes the nearest pixels, in whose place the filtered ones come.
bool ImageLibraryFacade::filterBoundImage(Sides sides, std::uint32_t depth) {
    const auto inForce = static_cast<ILenum>(library_.iluGetInteger(ILU_FILTER));
    const auto* const filter = std::find(scaleFilters.begin(), scaleFilters.end(), inForce);
    const Pixels before = boundPixels(library_);
    if (before.values.empty() || filter == scaleFilters.end()) {
        return library_.iluScale(sides.width, sides.height, depth) != 0;
    }
    std::vector<std::uint8_t> values(static_cast<std::size_t>(sides.pixels()) * before.channels);
    Pixels filtered = before;
    filtered.sides = sides;
    filtered.values = values;
    resample(before, static_cast<ScaleFilter>(filter - scaleFilters.begin()), filtered, coloursInForce());
    const bool scaled =
        withNearestFilter(library_, [&] { return library_.iluScale(sides.width, sides.height, depth); });
    const Pixels after = boundPixels(library_);
    const bool alike = after.format == before.format && after.fromTop == before.fromTop;
    if (scaled && alike && after.values.size() == values.size()) {
        std::copy(values.begin(), values.end(), after.values.begin());
    }
    return scaled;
}

/// A clear texel of a DXT1 block has no colour.
ColourUnderAlpha ImageLibraryFacade::coloursInForce() const {
    const bool dxt1 = options_.imageType == IL_DDS && library_.ilGetInteger(IL_DXTC_FORMAT) == IL_DXT1;
    return dxt1 ? ColourUnderAlpha::AsSeen : ColourUnderAlpha::Counts;
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

/// One failure can leave several codes; the next operation must not find them.
void ImageLibraryFacade::discardErrors() {
    while (images_.readErrorCode() != 0) {
    }
}

Sides ImageLibraryFacade::boundSides() const {
    return {static_cast<std::uint32_t>(library_.ilGetInteger(IL_IMAGE_WIDTH)),
            static_cast<std::uint32_t>(library_.ilGetInteger(IL_IMAGE_HEIGHT))};
}

} // namespace pelrath
