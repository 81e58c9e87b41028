#include "transfer/dds_builder.hpp"

#include "platform/posix/file_patch.hpp"
#include "platform/posix/files.hpp"
#include "platform/posix/scratch_file.hpp"
#include "transfer/known_blocks.hpp"
#include "transfer/level_bytes.hpp"

namespace pelrath {

bool DdsBuilder::chooseFormat(const TextureRecord& texture) {
    const auto native = nativeImageKind(texture);
    const OutputFileType type =
        native && native->kind == ImageFileKind::Bmp ? OutputFileType::DdsDxt1 : OutputFileType::DdsDxt5;
    return imaging_.saveAs(type);
}

bool DdsBuilder::buildWithLibraryChain(const std::string& path, HeldArchive& archive, std::size_t first,
                                       std::size_t count) {
    return save(path, true, archive, first, count);
}

bool DdsBuilder::buildScaled(const std::string& path, HeldArchive& archive, std::uint32_t image,
                             std::int16_t filter) {
    if (!save(path, false, archive, 0, 1)) return false;
    const ScratchFile scaled{programFolder_.pathFor("tmp2.dds")};
    LevelSource source{imaging_, image};
    std::int64_t position = firstLevelPosition;
    const std::vector<MipmapRecord>& levels = archive.session().chosenTexture().mipmaps;
    for (std::size_t i = 0; i < levels.size(); ++i) {
        const std::int64_t size = levels[i].dataSize;
        if (size > 0 && i > 0) {
            if (!saveScaled(scaled.path(), archive, source, i, filter)) return false;
            imaging_.facade.longWork().run(static_cast<std::uint64_t>(size), [&] {
                const auto data = readFileBytes(scaled.path(), firstLevelPosition, size);
                writeInto(path, static_cast<std::uint64_t>(position - 1), data);
            });
        } else {
            requireFileBytes(path, firstLevelPosition, size); // in its place already
        }
        position += size;
    }
    scaled.remove();
    return true;
}

bool DdsBuilder::save(const std::string& path, bool buildMipmaps, HeldArchive& archive, std::size_t first,
                      std::size_t count) {
    imaging_.options.buildMipmaps = buildMipmaps;
    const Sides sides = imaging_.facade.boundSides();
    std::vector<std::byte> known;
    imaging_.facade.longWork().run(sides.pixels(),
                                   [&] { known = knownBlocks(archive, first, count, sides); });
    const bool saved =
        imaging_.facade.saveImage(imaging_.options.imageType, path, true, known, Durability::Scratch);
    imaging_.images.check("saveImage");
    return saved;
}

bool DdsBuilder::saveScaled(const std::string& path, HeldArchive& archive, LevelSource& source,
                            std::size_t level, std::int16_t filter) {
    const MipmapRecord& record = archive.session().chosenTexture().mipmaps[level];
    ImageCopy copy{imaging_.facade, imaging_.images, source.imageFor(record.width, record.height)};
    // Where scaling fails, which it tells, the picture is taken as it is.
    (void)imaging_.facade.scaleImage(record.width, record.height, filter);
    imaging_.images.check("scaleImage");
    const bool saved = save(path, false, archive, level, 1);
    copy.remove();
    return saved;
}

} // namespace pelrath
