#pragma once

#include "platform/posix/new_file.hpp"

#include <cstdint>
#include <functional>
#include <string>

/// Copying what a file holds. Failures are answered as the system's errors (errno), 0 being none.
namespace pelrath {

/// Bytes done of all; see copyFlushed().
using CopyProgress = std::function<void(std::uint64_t done, std::uint64_t total)>;

/// Copies the first `size` bytes of a file over those of another, by sharing its blocks where the file system
/// can, and flushes them. `progress` is called before the first byte, then between ten and twenty-five times
/// a second, whatever the disk can do, with what the disk has for certain, and after the last. EIO where the
/// source turns out to be shorter.
[[nodiscard]] int copyFlushed(int from, int to, std::uint64_t size, const CopyProgress& progress);

/// The same for a whole file and its permissions, to a new one in `folder`, which is made as `start` says.
/// EIO where the source's length changes meanwhile.
[[nodiscard]] int copyToNewFile(int from, const std::string& folder, NewFile::Start start,
                                const CopyProgress& progress, NewFile& copy);

} // namespace pelrath
