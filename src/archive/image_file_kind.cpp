#include "archive/image_file_kind.hpp"

#include "platform/text.hpp"

namespace pelrath {

std::optional<NativeImageKind> nativeImageKind(const TextureRecord& texture) {
    const std::string type = upperCase(texture.fourCC);
    if (type == "DXT1") return NativeImageKind{"BMP", ImageFileKind::Bmp};
    if (type == "DXT5") return NativeImageKind{"TGA", ImageFileKind::Tga};
    return std::nullopt;
}

} // namespace pelrath
