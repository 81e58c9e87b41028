#include "transfer/image_file_name.hpp"

#include "archive/dds_export.hpp"
#include "platform/posix/files.hpp"
#include "platform/runtime_error.hpp"
#include "platform/text.hpp"

namespace pelrath {

namespace {

const char* extensionOf(ImageFileKind kind) {
    switch (kind) {
    case ImageFileKind::Bmp:
        return ".bmp";
    case ImageFileKind::Tga:
        return ".tga";
    case ImageFileKind::Dds:
        break;
    }
    return ".dds";
}

// `texture` is what the name comes from.
void requireFileName(const std::string& name, const std::string& texture) {
    const bool special = texture.empty() || name.empty() || name == "." || name == "..";
    if (!special && name.find_first_of("/\\") == std::string::npos && visibleText(name) == name) return;
    throw RuntimeError{static_cast<int>(ErrorNumber::BadFileName), "buildImageFileName",
                       "The texture's name \"" + visibleText(texture) + "\" cannot be the name of a file" +
                           (special ? "" : ", as it holds a separator or a control character") +
                           ". Please choose another texture."};
}

} // namespace

const std::string& checkedFileName(const std::string& name) {
    requireFileName(name, name);
    return name;
}

std::string imageFileName(const std::string& baseName, const MipmapRecord& level, ImageFileKind kind) {
    const std::string name =
        baseName + "-" + std::to_string(level.width) + "x" + std::to_string(level.height) + extensionOf(kind);
    requireFileName(name, baseName);
    return name;
}

std::string buildImageFileName(const Session& session, std::int16_t level, ImageFileKind kind) {
    const DdsExport dds{session.archive, session.archivePath, session.archiveFile};
    const MipmapRecord& mipmap = dds.level(session.selectedTexture, level);
    return joinPath(session.exportImportFolder, imageFileName(session.selectedBaseName, mipmap, kind));
}

} // namespace pelrath
