#pragma once

#include <string>
#include <vector>

namespace pelrath {

/// What one look into a folder tells, without a look at anything in it.
struct SubFolders {
    std::vector<std::string> names; ///< folders for certain, in the system's order
    std::vector<std::string> links; ///< may lead to folders; folderExists() tells
    int systemError = 0;            ///< errno of a folder that cannot be read; 0 otherwise
};

/// Names that are no UTF-8 are left out: no text of the program could name them. Waits for as long as the
/// system does, which for a lost network folder may be for ever.
[[nodiscard]] SubFolders readSubFolders(const std::string& folder);

/// Makes one folder. 0, or the system's code (errno) of what kept it from being made.
[[nodiscard]] int makeFolder(const std::string& path);

} // namespace pelrath
