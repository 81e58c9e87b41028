#include "platform/staging_place.hpp"

#include "platform/files.hpp"
#include "platform/runtime_error.hpp"

#include <cstdlib>
#include <filesystem>

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

} // namespace

StagingPlace::~StagingPlace() {
    std::error_code ignored;
    if (!folder_.empty()) std::filesystem::remove_all(folder_, ignored);
}

std::string StagingPlace::pathFor(const std::string& usual) {
    if (canBePut(usual)) return usual;
    if (folder_.empty()) folder_ = makePrivateFolder();
    return folder_.empty() ? usual : joinPath(folder_, fileName(usual));
}

} // namespace pelrath
