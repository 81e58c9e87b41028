#include "transfer/dds_builder.hpp"

#include "platform/file_patch.hpp"
#include "platform/files.hpp"
#include "platform/scratch_file.hpp"
#include "transfer/level_writer.hpp"

namespace pelrath {

bool DdsBuilder::buildWithLibraryChain(const std::string& path) { return save(path, true); }

bool DdsBuilder::buildScaled(const std::string& path, std::uint32_t image,
                             std::span<const MipmapRecord> levels, std::int16_t filter) {
    if (!save(path, false)) return false;
    const ScratchFile scaled{programFolder_.pathFor("tmp2.dds")};
    LevelSource source{imaging_, image};
    std::int64_t position = firstLevelPosition;
    for (const MipmapRecord& level : levels) {
        const bool whole = &level == &levels.front(); // in its place already
        if (level.dataSize > 0) {
            if (!whole && !saveScaled(scaled.path(), source, level, filter)) return false;
            const auto data = readFileBytes(whole ? path : scaled.path(), firstLevelPosition, level.dataSize);
            if (!whole) writeInto(path, static_cast<std::uint64_t>(position - 1), data);
        }
        position += level.dataSize;
    }
    scaled.remove();
    return true;
}

bool DdsBuilder::save(const std::string& path, bool buildMipmaps) {
    imaging_.options.buildMipmaps = buildMipmaps;
    const bool saved = imaging_.facade.saveImage(imaging_.options.imageType, path, true);
    imaging_.images.check("saveImage");
    return saved;
}

bool DdsBuilder::saveScaled(const std::string& path, LevelSource& source, const MipmapRecord& level,
                            std::int16_t filter) {
    ImageCopy copy{imaging_.facade, imaging_.images, source.imageFor(level.width, level.height)};
    // Where scaling fails, which it tells, the picture is taken as it is.
    (void)imaging_.facade.scaleImage(level.width, level.height, filter);
    imaging_.images.check("scaleImage");
    const bool saved = save(path, false);
    copy.remove();
    return saved;
}

} // namespace pelrath
