#pragma once

#include "platform/files.hpp"

/// The read-only attribute of an opened file, whatever its name is by now. It is set where the owner has no
/// write permission.
namespace pelrath {

/// Permission bits as the system counts them (07777).
using FileMode = unsigned;

[[nodiscard]] FileMode fileMode(const InputFile& file);
/// Flushed.
void setFileMode(const InputFile& file, FileMode mode);

[[nodiscard]] bool isReadOnly(FileMode mode);
/// The mode with the owner's write permission added.
[[nodiscard]] FileMode writable(FileMode mode);

} // namespace pelrath
