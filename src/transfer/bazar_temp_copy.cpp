#include "transfer/bazar_temp_copy.hpp"

#include "archive/image_file_kind.hpp"
#include "platform/posix/files.hpp"
#include "platform/posix/leftovers.hpp"
#include "platform/runtime_error.hpp"
#include "transfer/failure_report.hpp"
#include "transfer/image_file_name.hpp"
#include "transfer/image_library_use.hpp"

namespace pelrath {

bool BazarTempCopy::StoreCopyInBazarTemp(std::int16_t textureIndex, const std::string& sourcePath,
                                         std::string& summary) {
    // The library's code has a leading blank of its own.
    return attempt(boxes_, {"Image Library Error Number:  ", "Store texture Copy Error : "},
                   [&] { store(textureIndex, sourcePath, summary); });
}

void BazarTempCopy::store(std::int16_t textureIndex, const std::string& sourcePath, std::string& summary) {
    if (!imaging_.use.start()) return;
    LoadedImage image{imaging_.facade, imaging_.images, sourcePath};
    if (!image) {
        boxes_.critical("LoadImage " + sourcePath + " error", "StoreCopyInBazarTemp");
        return;
    }
    const TextureRecord& texture = session_.archive.textures.at(static_cast<std::size_t>(textureIndex));
    if (!chooseType(texture)) return;
    if (!folderExists(session_.settings.bazarTempFolder)) return;
    const std::string& name = checkedFileName(texture.name);
    const std::string destination = joinPath(session_.settings.bazarTempFolder, name);
    requireNotTheArchive(destination);
    removeHiddenLeftovers(session_.settings.bazarTempFolder);
    summary += destination;
    if (!mayReplace(destination, name)) return;
    imaging_.options.buildMipmaps = false;
    imaging_.options.targaFirstRow = FirstRow::Bottom; // as loose textures are expected
    const bool saved = imaging_.facade.saveImage(imaging_.options.imageType, destination, true);
    imaging_.images.check("saveImage");
    image.remove();
    summary += saved ? " overwritten\r\n 1 file(s) copied.\r\n" : " not written.\r\n";
}

void BazarTempCopy::requireNotTheArchive(const std::string& destination) const {
    if (!sameFile(destination, session_.archivePath)) return;
    throw makeError(ErrorNumber::PathFileAccess, "StoreCopyInBazarTemp",
                    destination + " is the open archive; please choose another Bazar Temp folder");
}

bool BazarTempCopy::chooseType(const TextureRecord& texture) {
    const auto native = nativeImageKind(texture);
    const OutputFileType type =
        native && native->kind == ImageFileKind::Tga ? OutputFileType::Tga : OutputFileType::Bmp;
    return imaging_.saveAs(type);
}

bool BazarTempCopy::mayReplace(const std::string& path, const std::string& name) {
    if (!fileExists(path)) return true;
    return boxes_.show("File " + name + " already exists in Bazar Temp folder. Overwrite it ?", "File exists",
                       BoxIcon::None, BoxButtons::OkCancel) == BoxAnswer::Ok;
}

} // namespace pelrath
