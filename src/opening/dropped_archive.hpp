#pragma once

#include <optional>
#include <span>
#include <string>

namespace pelrath {

/// The path of the archive that is dropped as these URIs: of one file of this machine, whose name ends in
/// ".cdds", in whatever case. Nothing for anything else. Does not look at the disk.
[[nodiscard]] std::optional<std::string> droppedArchive(std::span<const std::string> uris);

} // namespace pelrath
