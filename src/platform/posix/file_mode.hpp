#pragma once

#include "platform/posix/files.hpp"

/// The read-only attribute of an opened file, whatever its name is by now. It is set where the owner has no
/// write permission.
namespace pelrath {

/// Permission bits as the system counts them (07777).
using FileMode = unsigned;

/// Why nobody here can write into the file, nor take away the attribute that keeps it from being written: a
/// few sentences with its path and what to do, without the last full stop. Empty where it can be written, be
/// it only once the attribute is gone. Changes nothing.
[[nodiscard]] std::string whyNotWritable(const InputFile& file);

[[nodiscard]] FileMode fileMode(const InputFile& file);
/// Flushed.
void setFileMode(const InputFile& file, FileMode mode);

[[nodiscard]] bool isReadOnly(FileMode mode);
/// The mode with the owner's write permission added.
[[nodiscard]] FileMode writable(FileMode mode);

} // namespace pelrath
