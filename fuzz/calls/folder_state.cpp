#include "calls/folder_state.hpp"

#include <filesystem>
#include <fstream>

namespace pelrath::calls {

namespace {

namespace fs = std::filesystem;

FileState stateOfFile(const fs::directory_entry& entry) {
    const auto mode = static_cast<unsigned>(entry.symlink_status().permissions());
    if (entry.is_directory()) return {"/", mode};
    std::ifstream in{entry.path(), std::ios::binary};
    return {{std::istreambuf_iterator<char>{in}, {}}, mode};
}

} // namespace

FolderState stateOf(const std::string& folder) {
    FolderState state;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator{folder}) {
        state.emplace(fs::relative(entry.path(), folder).string(), stateOfFile(entry));
    }
    return state;
}

void restore(const std::string& folder, const FolderState& state) {
    const FolderState now = stateOf(folder);
    for (const auto& [name, file] : now) {
        if (state.count(name) == 0) fs::remove_all(folder + "/" + name);
    }
    for (const auto& [name, file] : state) {
        const auto found = now.find(name);
        if (found != now.end() && found->second == file) continue;
        const std::string path = folder + "/" + name;
        if (file.bytes == "/") {
            fs::create_directories(path);
        } else {
            std::ofstream out{path, std::ios::binary};
            out << file.bytes;
        }
        fs::permissions(path, static_cast<fs::perms>(file.mode));
    }
}

} // namespace pelrath::calls
