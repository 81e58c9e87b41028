#include "imaging/bound_picture.hpp"

#include "imaging/block_decoder.hpp"
#include "imaging/bound_pixels.hpp"
#include "imaging/chain_encoder.hpp"
#include "imaging/dds_format.hpp"
#include "imaging/library_error.hpp"
#include "imaging/loadable_file.hpp"
#include "imaging/memory_files.hpp"
#include "imaging/saved_file.hpp"
#include "platform/text.hpp"

#include <IL/il.h>
#include <IL/ilu.h>

#include <algorithm>
#include <array>

namespace pelrath {

namespace {

/// By ScaleFilter.
constexpr std::array<ILenum, 9> scaleFilters{
    ILU_NEAREST,    ILU_LINEAR,        ILU_BILINEAR,       ILU_SCALE_BOX,      ILU_SCALE_TRIANGLE,
    ILU_SCALE_BELL, ILU_SCALE_BSPLINE, ILU_SCALE_LANCZOS3, ILU_SCALE_MITCHELL,
};

/// False for pixels that the library keeps in another form than those they come from.
bool canReplace(const Pixels& target, const Pixels& source) {
    const bool alike = source.format == target.format && source.fromTop == target.fromTop;
    return alike && !source.values.empty() && !target.values.empty();
}

bool isQuarter(const Sides& of, const Sides& whole) {
    return of.width * 4 == whole.width && of.height * 4 == whole.height;
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

/// A picture of one pixel, bound for as long as it lives in the place of the one that is.
class OnePixel {
public:
    static constexpr Sides sides{1, 1};

    OnePixel(const LibraryFunctions& library, const LibraryImages& images)
        : images_(images), before_(static_cast<ILuint>(library.ilGetInteger(IL_CUR_IMAGE))),
          image_(images.generate()) {
        images_.bind(image_);
        ILubyte pixel[bytesPerTexel]{};
        library.ilTexImage(sides.width, sides.height, 1, bytesPerTexel, IL_RGBA, IL_UNSIGNED_BYTE, pixel);
    }
    ~OnePixel() {
        images_.bind(before_);
        images_.remove(image_);
        (void)images_.readErrorCode(); // the file is what counts
    }
    OnePixel(const OnePixel&) = delete;
    OnePixel& operator=(const OnePixel&) = delete;

private:
    const LibraryImages& images_;
    ILuint before_;
    ILuint image_;
};

} // namespace

Sides BoundPicture::sides() const {
    return {static_cast<std::uint32_t>(library_.ilGetInteger(IL_IMAGE_WIDTH)),
            static_cast<std::uint32_t>(library_.ilGetInteger(IL_IMAGE_HEIGHT))};
}

void BoundPicture::load(const LoadableFile& file, const std::string& fileName) {
    const ReadingFromMemory reading{file.bytes};
    const bool loaded = library_.ilLoad(static_cast<ILenum>(file.readAs), fileName.c_str()) != 0;
    // A load can answer true with pixels missing; then only the error stack says so.
    const std::int32_t code = images_.readErrorCode();
    if (!loaded || code != 0) {
        discardErrors();
        throw ImageLibraryError{code, "loadImage"};
    }
    const Sides sides = this->sides();
    if (sides.width != file.sides.width || sides.height != file.sides.height) {
        throw ImageLibraryError{IL_INTERNAL_ERROR, "loadImage"};
    }
    if (file.blocks) putExactPixels(file);
}

void BoundPicture::putExactPixels(const LoadableFile& file) {
    const bool asExpected = library_.ilGetInteger(IL_IMAGE_FORMAT) == IL_RGBA &&
                            library_.ilGetInteger(IL_IMAGE_TYPE) == IL_UNSIGNED_BYTE &&
                            library_.ilGetInteger(IL_IMAGE_ORIGIN) == IL_ORIGIN_UPPER_LEFT;
    ILubyte* const pixels = library_.ilGetData();
    if (!asExpected || pixels == nullptr) throw ImageLibraryError{IL_INTERNAL_ERROR, "loadImage"};
    const std::span<ILubyte> all{pixels, static_cast<std::size_t>(file.sides.pixels()) * bytesPerTexel};
    decodeLevel(*file.blocks, Bytes{file.bytes}.subspan(LoadableFile::blocksAt), file.sides.width,
                file.sides.height, std::as_writable_bytes(all));
}

void BoundPicture::setFilter(ScaleFilter filter) {
    library_.iluImageParameter(ILU_FILTER, scaleFilters.at(static_cast<std::size_t>(filter)));
}

/// The library's own scaling drops pixels where it shrinks, and is a pixel off or reads what is not the
/// picture's where it enlarges; so it takes the nearest pixels, in whose place the filtered ones come.
bool BoundPicture::scale(Sides sides, std::uint32_t depth) {
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
ColourUnderAlpha BoundPicture::coloursInForce() const {
    const bool dxt1 = options_.imageType == IL_DDS && library_.ilGetInteger(IL_DXTC_FORMAT) == IL_DXT1;
    return dxt1 ? ColourUnderAlpha::AsSeen : ColourUnderAlpha::Counts;
}

/// The library's levels drop pixels instead of averaging them.
bool BoundPicture::buildChain() {
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

/// Nothing where the library fails without a code.
std::optional<std::vector<std::byte>> BoundPicture::save(const std::string& fileName, Bytes known) {
    const std::vector<Pixels> levels =
        options_.imageType == IL_DDS ? levelsToCompress() : std::vector<Pixels>{};
    if (levels.empty()) return savedByLibrary(fileName, sides());
    // The library's encoder loses colours: one pixel is enough of it, as its file gets other levels.
    std::optional<std::vector<std::byte>> file;
    {
        const OnePixel bound{library_, images_};
        file = savedByLibrary(fileName, OnePixel::sides);
    }
    if (file) {
        const BlockFormat format = blockFormatOf(ddsHeaderOf(*file));
        const std::span<std::byte> blocks = makeRoomForLevels(format, levels, *file);
        encodeChain(format, levels, known, blocks);
    }
    return file;
}

/// The whole file of a picture of these sides, which is bound.
std::optional<std::vector<std::byte>> BoundPicture::savedByLibrary(const std::string& fileName, Sides sides) {
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
    if (options_.imageType == IL_TGA) finishTarga(sides, options_.targaFirstRow, file);
    return file;
}

/// The levels that are going to be saved; none where they could not be converted to what is compressed.
std::vector<Pixels> BoundPicture::levelsToCompress() {
    const auto below = static_cast<std::uint32_t>(library_.ilGetInteger(IL_NUM_MIPMAPS));
    const std::uint32_t wanted = options_.buildMipmaps ? below + 1 : 1;
    std::vector<Pixels> levels;
    forEachLevel(wanted, [&](const Pixels& level) {
        if (level.format == IL_RGBA && !level.values.empty()) levels.push_back(level);
    });
    if (levels.size() != wanted) levels.clear();
    return levels;
}

/// Saving a chain leaves its last level as the one that the next call would work on.
void BoundPicture::bindWholeImage() {
    library_.ilBindImage(static_cast<std::uint32_t>(library_.ilGetInteger(IL_CUR_IMAGE)));
}

/// Looks at the bound image and at the levels below it in turn. The whole image is bound afterwards.
template <typename Work>
void BoundPicture::forEachLevel(std::uint32_t levels, Work work) {
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

bool BoundPicture::librarySaves(const std::string& fileName) {
    // By the name alone the library would choose the type by the extension, and a texture keeps its own name
    // whatever it is saved as.
    const bool nameSaysType = options_.extension.empty() ||
                              "." + upperCase(fileExtension(fileName)) == upperCase(options_.extension);
    if (nameSaysType) return library_.ilSaveImage(fileName.c_str()) != 0;
    return library_.ilSave(static_cast<ILenum>(options_.imageType), fileName.c_str()) != 0;
}

/// One failure can leave several codes; the next operation must not find them.
void BoundPicture::discardErrors() {
    while (images_.readErrorCode() != 0) {
    }
}

} // namespace pelrath
