#include "copies/found_copies.hpp"

#include "platform/posix/files.hpp"
#include "platform/posix/folder_handle.hpp"
#include "platform/posix/folder_names.hpp"
#include "platform/runtime_error.hpp"
#include "transfer/numbered_copy.hpp"

#include <algorithm>
#include <optional>
#include <tuple>

namespace pelrath::copies {

namespace {

constexpr std::int64_t nanoseconds = 1'000'000'000; // in a second

bool isArchiveName(std::string_view name) { return fileExtension(name) == "cdds"; }

} // namespace

std::vector<FoundCopy> findCopies(const std::string& archivePath, const std::string& folder) {
    const FileHandle opened = openFolderToRead(folder);
    if (!opened) throw makeSystemError(errno, "findCopies", folder);
    std::vector<FoundCopy> found;
    for (const std::string& name : namesIn(opened.get(), isArchiveName)) {
        const std::optional<std::int32_t> number = numberOfCopy(archivePath, name);
        const std::string path = joinPath(folder, name);
        const std::optional<FileIdentity> file = number ? identityOf(path) : std::nullopt;
        if (!file || sameFile(path, archivePath)) continue;
        found.push_back({path, *number, file->modified / nanoseconds, file->size, *file});
    }
    std::ranges::sort(found, [](const FoundCopy& one, const FoundCopy& other) {
        return std::tie(one.made, one.number) > std::tie(other.made, other.number);
    });
    return found;
}

} // namespace pelrath::copies
