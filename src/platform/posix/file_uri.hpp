#pragma once

#include <optional>
#include <string>

namespace pelrath {

/// The path that a "file:" URI stands for, of whatever bytes; nothing for any other text, and for a file of
/// another machine.
[[nodiscard]] std::optional<std::string> pathOfUri(const std::string& uri);

/// The URI of a path from the root.
[[nodiscard]] std::string uriOfPath(const std::string& path);

} // namespace pelrath
