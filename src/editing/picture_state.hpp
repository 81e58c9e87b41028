#pragma once

#include "archive/image_file_kind.hpp"
#include "imaging/loadable_file.hpp"
#include "platform/posix/file_identity.hpp"

#include <cstddef>
#include <optional>
#include <string>

namespace pelrath::editing {

/// A picture's file at one time.
struct PictureState {
    FileIdentity identity;
    Sides sides{};
    std::optional<BlockFormat> blocks; ///< that it is stored in
    std::size_t digest = 0;            ///< of its bytes: equal for equal ones, in one run of the program
};

/// What a look at a file found.
struct FileLook {
    std::optional<FileIdentity> now; ///< nothing: there is no such file
    bool wasRead = false;
    std::optional<PictureState> picture; ///< that was read: whole, of its kind, and the same all the while
};

/// Reads the file, on any thread. What it is, its header and its length are checked as before a load; the
/// image library is not used. Raises nothing.
[[nodiscard]] FileLook readPicture(const std::string& path, ImageFileKind kind);

} // namespace pelrath::editing
