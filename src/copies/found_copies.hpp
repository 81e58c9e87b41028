#pragma once

#include "platform/posix/file_identity.hpp"

#include <cstdint>
#include <string>
#include <vector>

/// The numbered copies of an archive: which there are, how they differ from it, and the way back to one.
namespace pelrath::copies {

struct FoundCopy {
    std::string path;
    std::int32_t number = 0;
    std::int64_t made = 0;   ///< seconds since 1970: when its content was last written
    std::uint64_t bytes = 0; ///< its length
    FileIdentity file;       ///< which file it was, and in which state
};

/// The files in the folder that bear the name of a numbered copy of the archive (see copyName()), the newest
/// first. The archive itself is none. RuntimeError where the folder cannot be read.
[[nodiscard]] std::vector<FoundCopy> findCopies(const std::string& archivePath, const std::string& folder);

} // namespace pelrath::copies
