#include "platform/posix/full_path.hpp"

#include "platform/posix/special_folders.hpp"
#include "platform/text.hpp"

#include <cerrno>
#include <filesystem>
#include <string_view>

#include <glib.h>

namespace pelrath {

namespace {

constexpr std::size_t longestMessage = 256;

// From the root: what stands before the first separator is taken as standing behind one.
std::string resolved(std::string_view path) {
    std::string full;
    while (!path.empty()) {
        const std::string_view part = path.substr(0, path.find('/'));
        path.remove_prefix(part.size() == path.size() ? part.size() : part.size() + 1);
        if (part.empty() || part == ".") continue;
        if (part == "..") {
            full.erase(full.empty() ? 0 : full.rfind('/'));
        } else {
            full.append("/").append(part);
        }
    }
    return full.empty() ? "/" : full;
}

} // namespace

FullPath fullPath(const std::string& path, const std::string& folder) {
    if (path.empty()) return {{}, ENOENT};
    std::string full = resolved(path.starts_with('/') ? path : folder + "/" + path);
    if (characterCount(full) > longestFolderPath) return {{}, ENAMETOOLONG};
    return {std::move(full), 0};
}

FullPath fullPath(const std::string& path) {
    if (path.empty() || path.starts_with('/')) return fullPath(path, {});
    std::error_code failure;
    const std::string current = std::filesystem::current_path(failure).string();
    if (failure) return {{}, failure.value()};
    return fullPath(path, current);
}

std::string meaningOfPath(const std::string& typed) {
    const bool atHome = typed == "~" || typed.starts_with("~/");
    return atHome ? specialFolderPath(special_folder::home) + typed.substr(1) : typed;
}

std::string pathFromRoot(const std::string& typed) {
    std::string path = meaningOfPath(typed);
    if (path.starts_with('/')) return path;
    std::error_code failure;
    const std::string current = std::filesystem::current_path(failure).string();
    return failure ? std::string{} : resolved(current + "/" + path);
}

std::string systemMessage(int systemError) {
    return std::string{firstCharacters(g_strerror(systemError), longestMessage)};
}

} // namespace pelrath
