#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace pelrath {

/// Which file it is, and which state of it, as the system counts. Times are nanoseconds since 1970, as exact
/// as the file system keeps them.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::uint64_t size = 0;         ///< bytes
    std::int64_t modified = 0;      ///< when its content was last written; programs can set it back
    std::int64_t statusChanged = 0; ///< when that, its permissions or its names last changed
    std::int64_t born = 0;          ///< when it was made; 0 where the file system does not say

    bool operator==(const FileIdentity&) const = default;

    /// True for two states of one and the same file.
    [[nodiscard]] bool sameFile(const FileIdentity& other) const {
        return device == other.device && inode == other.inode;
    }
};

/// Of what a path leads to, by whatever links; nothing where that is no regular file.
[[nodiscard]] std::optional<FileIdentity> identityOf(const std::string& path);

} // namespace pelrath
