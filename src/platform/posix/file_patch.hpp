#pragma once

#include "platform/posix/files.hpp"

#include <cstdint>
#include <string>

/// Writing into a file that exists, at a 0-based position. The file is opened for this one write, never
/// created and never cut.
namespace pelrath {

/// Writes `bytes`; the file grows where they go beyond its end. Links are followed.
void writeInto(const std::string& path, std::uint64_t offset, Bytes bytes);

/// Writes `bytes` over as many bytes of the very file that is open. What stands under its name plays no part.
/// Fails without a write unless the whole range lies inside the file. Any other failure, and an end of the
/// process meanwhile, may leave some of the bytes new and some old. On the disk they are once
/// flushOverwritten() has returned.
void overwrite(const InputFile& opened, std::uint64_t offset, Bytes bytes);

/// Waits until all that was written into the file since it was opened is on the disk. Fails where any of it
/// cannot be.
void flushOverwritten(const InputFile& opened);

} // namespace pelrath
