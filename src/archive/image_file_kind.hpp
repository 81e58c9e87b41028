#pragma once

#include "archive/catalogue.hpp"

#include <optional>
#include <string_view>

namespace pelrath {

enum class ImageFileKind { Bmp = 0, Tga = 1, Dds = 2 };

struct NativeImageKind {
    std::string_view extension; ///< upper case, without a dot
    ImageFileKind kind;
    bool operator==(const NativeImageKind&) const = default;
};

/// The kind of image file that suits a texture: BMP for DXT1, TGA for DXT5, compared without regard to case;
/// nothing for any other type.
[[nodiscard]] std::optional<NativeImageKind> nativeImageKind(const TextureRecord& texture);

} // namespace pelrath
