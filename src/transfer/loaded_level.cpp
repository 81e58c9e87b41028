#include "transfer/loaded_level.hpp"

namespace pelrath {

bool TransferImaging::saveAs(OutputFileType type) const {
    return facade.setSaveImageOptions(static_cast<std::int32_t>(type), options.imageType, options.extension);
}

void runOnLevel(LongWork& longWork, const DdsExport& dds, std::int16_t textureIndex, std::int16_t level,
                const std::function<void()>& work) {
    longWork.run(static_cast<std::uint64_t>(dds.level(textureIndex, level).dataSize), work);
}

bool LoadedLevel::load(const WorkingFolder& programFolder, std::int16_t textureIndex, std::int16_t level,
                       ImageFileKind kind) {
    const std::string staged = programFolder.pathFor("tmp1.dds");
    runOnLevel(imaging_.facade.longWork(), dds_, textureIndex, level,
               [&] { dds_.writeDdsLevelFile(staged, textureIndex, level, Durability::Scratch); });
    image_.emplace(
        imaging_.facade, imaging_.images, staged,
        PictureWords{"The texture " + dds_.describe(textureIndex), "another copy of the archive may help"});
    if (!*image_) {
        boxes_.critical("LoadImage " + staged + " error", "SimpleImageInsertion");
        return false;
    }
    return imaging_.saveAs(kind == ImageFileKind::Bmp ? OutputFileType::Bmp : OutputFileType::Tga);
}

bool LoadedLevel::save(const std::string& path, Durability durability, OldFile old) {
    imaging_.options.buildMipmaps = false;
    imaging_.options.targaFirstRow = FirstRow::Top; // upright in every reader
    const bool saved =
        imaging_.facade.saveImage(imaging_.options.imageType, path, old == OldFile::Replaced, {}, durability);
    imaging_.images.check("saveImage");
    if (saved) image_->remove();
    return saved;
}

} // namespace pelrath
