#pragma once

#include <map>
#include <string>

namespace pelrath::calls {

struct FileState {
    std::string bytes; ///< "/" of a folder
    unsigned mode = 0;
    bool operator==(const FileState&) const = default;
};

/// All that is below a folder, by the path inside it.
using FolderState = std::map<std::string, FileState>;

FolderState stateOf(const std::string& folder);
/// Makes a folder again what it was. Files keep their inodes.
void restore(const std::string& folder, const FolderState& state);

} // namespace pelrath::calls
