#include "platform/posix/folder_names.hpp"

#include <memory>

#include <dirent.h>
#include <fcntl.h>

namespace pelrath {

namespace {

struct Closing {
    void operator()(DIR* folder) const { ::closedir(folder); }
};

} // namespace

std::vector<std::string> namesIn(int folder, bool (*isWanted)(std::string_view name)) {
    std::vector<std::string> found;
    const int twin = ::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC); // closed with the reading
    const std::unique_ptr<DIR, Closing> reading{twin < 0 ? nullptr : ::fdopendir(twin)};
    if (!reading) return found;
    while (const dirent* entry = ::readdir(reading.get())) {
        if (isWanted(entry->d_name)) found.emplace_back(entry->d_name);
    }
    return found;
}

} // namespace pelrath
