#pragma once

#include <string>

/// The read-only attribute of a file. It is set where the owner has no write permission; links are followed.
namespace pelrath {

/// Permission bits as the system counts them (07777).
using FileMode = unsigned;

/// Fails where there is no such file.
[[nodiscard]] FileMode fileMode(const std::string& path);
void setFileMode(const std::string& path, FileMode mode);

[[nodiscard]] bool isReadOnly(FileMode mode);
/// The mode with the owner's write permission added.
[[nodiscard]] FileMode writable(FileMode mode);

} // namespace pelrath
