#pragma once

#include "platform/files.hpp"

#include <cstdint>
#include <string>

/// Writing into a file that exists, at a 0-based position. The file is opened for this one write, never
/// created and never cut.
namespace pelrath {

/// Writes `bytes`; the file grows where they go beyond its end. Links are followed.
void writeInto(const std::string& path, std::uint64_t offset, Bytes bytes);

/// Writes `bytes` over as many bytes of the very file that is open, flushed: afterwards they are wholly the
/// new ones, or, when it fails, the old ones. What stands under its name plays no part. Where even the old
/// ones cannot be put back, the failure says so. Fails without a write unless the whole range lies inside the
/// file. A write ends between two pages when its process is killed, which would leave a mixture. So the bytes
/// are written by a child process that has them all, ignores every signal that can be ignored, and outlives
/// this one.
void overwriteWholly(const InputFile& opened, std::uint64_t offset, Bytes bytes);

} // namespace pelrath
