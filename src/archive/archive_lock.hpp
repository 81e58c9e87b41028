#pragma once

#include "platform/file_lock.hpp"
#include "platform/files.hpp"

namespace pelrath {

/// Locks an opened archive against the program's other copies, for as long as it is open: exclusively by who
/// is going to write into it, shared by who reads levels. Waits half a second for one that has it, which is
/// longer than a look at a level takes; false when that was not enough. File systems without locks let
/// everybody in.
[[nodiscard]] bool lockArchive(const InputFile& archive, LockKind kind);

} // namespace pelrath
