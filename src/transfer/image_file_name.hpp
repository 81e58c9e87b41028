#pragma once

#include "archive/catalogue.hpp"
#include "archive/image_file_kind.hpp"
#include "session/session.hpp"

#include <cstdint>
#include <string>

namespace pelrath {

/// The file in the Export/Import folder that holds the chosen texture's level as an image of that kind:
/// base name, "-", width, "x", height, and the kind's extension. Fails with "Bad file name" for a name that
/// would lead elsewhere or that no file can have, and for a level that the texture does not have.
[[nodiscard]] std::string buildImageFileName(const Session& session, std::int16_t level, ImageFileKind kind);

/// The same without its folder, of a level of any texture whose name without its extension is `baseName`.
/// Fails alike for its name.
[[nodiscard]] std::string imageFileName(const std::string& baseName, const MipmapRecord& level,
                                        ImageFileKind kind);

/// `name`, when it can be a file name as it stands. Fails with "Bad file name" for one that is empty, "." or
/// "..", or holds a separator of any system or a control character.
[[nodiscard]] const std::string& checkedFileName(const std::string& name);

} // namespace pelrath
