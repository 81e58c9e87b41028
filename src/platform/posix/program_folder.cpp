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

namespace {

std::string ownFolder() { return std::string{parentFolder(executablePath())}; }
std::string dataFolder() { return joinPath(g_get_user_data_dir(), "pelrath"); }

bool isOwnUsed() {
    const std::string own = ownFolder();
    return !own.empty() && ::access(own.c_str(), W_OK | X_OK) == 0;
}

} // namespace

std::string programFolder() {
    if (isOwnUsed()) return ownFolder();
    std::string data = dataFolder();
    if (!folderExists(data)) {
        g_mkdir_with_parents(data.c_str(), 0700); // a failure shows at the first file written there
        (void)flushFolderOf(data);
        (void)flushFolderOf(std::string{parentFolder(data)});
    }
    return data;
}

std::string otherProgramFolder() { return isOwnUsed() ? dataFolder() : ownFolder(); }

std::string batchExecutable() {
    std::string beside = joinPath(ownFolder(), "pelrath-batch");
    return ::access(beside.c_str(), X_OK) == 0 ? beside : "";
}

std::string guideFile() {
    const std::string own{parentFolder(executablePath())};
    for (const char* place : {"../share/doc/pelrath/guide.md", "../../../docs/guide.md"}) {
        std::string file = std::filesystem::path{joinPath(own, place)}.lexically_normal().string();
        if (fileExists(file)) return file;
    }
    return {};
}

} // namespace pelrath
