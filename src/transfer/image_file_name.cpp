#include "transfer/image_file_name.hpp"

#include "platform/files.hpp"
#include "platform/runtime_error.hpp"

#include <algorithm>

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

bool neverInAFileName(char byte) {
    const auto code = static_cast<unsigned char>(byte);
    return code < 0x20 || code == 0x7F || byte == '/' || byte == '\\';
}

// U+0080 to U+009F, in UTF-8.
bool hasSecondControlSet(std::string_view name) {
    for (std::size_t at = 0; (at = name.find('\xC2', at)) != std::string_view::npos; ++at) {
        if (static_cast<unsigned char>(name.substr(at + 1, 1)[0]) < 0xA0) return true;
    }
    return false;
}

} // namespace

const std::string& checkedFileName(const std::string& name) {
    const bool special = name.empty() || name == "." || name == "..";
    if (special || std::any_of(name.begin(), name.end(), neverInAFileName) || hasSecondControlSet(name)) {
        throw RuntimeError{static_cast<int>(ErrorNumber::BadFileName), "buildImageFileName",
                           "The texture's name \"" + name + "\" cannot be the name of a file" +
                               (special ? "" : ", as it holds a separator or a control character") +
                               ". Please choose another texture."};
    }
    return name;
}

std::string buildImageFileName(const Session& session, std::int16_t level, ImageFileKind kind) {
    const DdsExport dds{session.archive, session.archivePath, session.archiveFile};
    const MipmapRecord& mipmap = dds.level(session.selectedTexture, level);
    return joinPath(session.exportImportFolder, checkedFileName(session.selectedBaseName) + "-" +
                                                    std::to_string(mipmap.width) + "x" +
                                                    std::to_string(mipmap.height) + extensionOf(kind));
}

} // namespace pelrath
