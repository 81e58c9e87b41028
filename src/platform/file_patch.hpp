#pragma once

#include "platform/files.hpp"

#include <cstdint>
#include <string>

/// Writing into a file that exists, at a 0-based position. The file is opened for this one write, never
/// created and never cut. Links are followed.
namespace pelrath {

/// Writes `bytes`; the file grows where they go beyond its end.
void writeInto(const std::string& path, std::uint64_t offset, Bytes bytes);

/// Writes `bytes` over as many bytes of a regular file, flushed: afterwards they are wholly the new ones, or,
/// when it fails, the old ones. Where even the old ones cannot be put back, the failure says so. Fails
/// without a write unless the whole range lies inside the file.
/// A write ends between two pages when its process is killed, which would leave a mixture. So the bytes are
/// written by a child process that has them all, ignores every signal that can be ignored, and outlives this
/// one.
void overwriteWholly(const std::string& path, std::uint64_t offset, Bytes bytes);

} // namespace pelrath
