#pragma once

#include <cstddef>
#include <string>

namespace pelrath {

/// The longest path that a folder dialog takes or gives, in characters (MAX_PATH).
inline constexpr std::size_t longestFolderPath = 260;

struct FullPath {
    std::string path;    ///< empty when it failed
    int systemError = 0; ///< the system's code (errno); 0 when there is a path
};

/// The path from the root that `path` means, seen from the current folder: ".", ".." and empty parts are
/// resolved by their letters alone, without a look at the disk, and no separator ends it but the root's own.
/// Fails for an empty path, for more than longestFolderPath characters, and where there is no current folder.
[[nodiscard]] FullPath fullPath(const std::string& path);

/// The same, seen from `folder`, which is a full path itself.
[[nodiscard]] FullPath fullPath(const std::string& path, const std::string& folder);

/// The path that a typed one means: a "~" that is its first part is the home folder.
[[nodiscard]] std::string meaningOfPath(const std::string& typed);

/// The path from the root that a typed one means, of any length: one from the root as it stands, any other
/// seen from the home folder or the current one and resolved as above. Empty where there is no current
/// folder.
[[nodiscard]] std::string pathFromRoot(const std::string& typed);

/// The system's own words for one of its error codes, at most 256 characters.
[[nodiscard]] std::string systemMessage(int systemError);

} // namespace pelrath
