#include "platform/staging_place.hpp"

#include "platform/files.hpp"
#include "platform/runtime_error.hpp"

#include <cstdlib>
#include <filesystem>

#include <sys/stat.h>
#include <unistd.h>

namespace pelrath {

namespace {

bool canBePut(const std::string& path) try {
    const FileReplacement attempt{path};
    return true;
} catch (const RuntimeError&) {
    return false;
}

std::string makePrivateFolder() {
    std::error_code none;
    std::string folder = joinPath(std::filesystem::temp_directory_path(none).string(), "pelrath-XXXXXX");
    return none || ::mkdtemp(folder.data()) == nullptr ? std::string{} : folder;
}

// What is cleared away during a long run can come back as somebody else's.
bool isOwnFolder(const std::string& path) {
    struct stat found {};
    return ::lstat(path.c_str(), &found) == 0 && S_ISDIR(found.st_mode) && found.st_uid == ::geteuid();
}

} // namespace

StagingPlace::~StagingPlace() {
    std::error_code ignored;
    if (!folder_.empty()) std::filesystem::remove_all(folder_, ignored);
}

std::string StagingPlace::pathFor(const std::string& usual) {
    if (canBePut(usual)) return usual;
    if (!isOwnFolder(folder_)) folder_ = makePrivateFolder();
    return folder_.empty() ? usual : joinPath(folder_, fileName(usual));
}

} // namespace pelrath
