#include "platform/posix/program_folder.hpp"

#include "platform/posix/files.hpp"

#include <filesystem>

#include <glib.h>
#include <unistd.h>

namespace pelrath {

std::string executablePath() {
    std::error_code unknown;
    return std::filesystem::read_symlink("/proc/self/exe", unknown).string();
}

std::string programFolder() {
    std::string own{parentFolder(executablePath())};
    if (!own.empty() && ::access(own.c_str(), W_OK | X_OK) == 0) return own;
    std::string data = joinPath(g_get_user_data_dir(), "pelrath");
    g_mkdir_with_parents(data.c_str(), 0700); // a failure shows at the first file written there
    return data;
}

} // namespace pelrath
