#include "platform/posix/sub_folders.hpp"

#include "platform/posix/folder_handle.hpp"

#include <cerrno>
#include <string_view>

#include <glib.h>
#include <sys/stat.h>

namespace pelrath {

namespace {

void add(SubFolders& found, const dirent& entry) {
    const std::string_view name{entry.d_name};
    if (name == "." || name == ".." || g_utf8_validate(name.data(), -1, nullptr) == FALSE) return;
    if (entry.d_type == DT_DIR) found.names.emplace_back(name);
    if (entry.d_type == DT_LNK || entry.d_type == DT_UNKNOWN) found.links.emplace_back(name);
}

} // namespace

SubFolders readSubFolders(const std::string& folder) {
    SubFolders found;
    const FolderReading open{::opendir(folder.c_str())};
    if (!open) {
        found.systemError = errno;
        return found;
    }
    errno = 0;
    while (const dirent* entry = ::readdir(open.get())) {
        add(found, *entry);
    }
    found.systemError = errno; // what was found before a failure still stands
    return found;
}

int makeFolder(const std::string& path) { return ::mkdir(path.c_str(), 0777) == 0 ? 0 : errno; }

} // namespace pelrath
