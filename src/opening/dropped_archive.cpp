#include "opening/dropped_archive.hpp"

#include "platform/posix/file_uri.hpp"
#include "platform/posix/files.hpp"
#include "platform/text.hpp"

namespace pelrath {

std::optional<std::string> droppedArchive(std::span<const std::string> uris) {
    if (uris.size() != 1) return std::nullopt;
    std::optional<std::string> path = pathOfUri(uris[0]);
    if (!path || !isUtf8(*path) || upperCase(fileExtension(*path)) != "CDDS") return std::nullopt;
    return path;
}

} // namespace pelrath
