#pragma once

#include "platform/posix/file_handle.hpp"

#include <map>
#include <set>
#include <string>
#include <vector>

namespace pelrath {

/// Watches files through the folders that they are in, so that it is seen, too, when another file takes a
/// file's place. A file that is a link is watched where it leads to as well.
class FolderWatch {
public:
    FolderWatch();

    /// Watches these, by their paths from the root, and no others.
    void follow(const std::vector<std::string>& paths);

    /// Readable when something is to be taken; -1 where the system gives none.
    [[nodiscard]] int handle() const { return watches_.get(); }
    /// Takes what has come. True when one of the files may have changed.
    bool taken();

    /// Changes of some of the files need not show: they are on another machine, say, or their folder is gone.
    [[nodiscard]] bool isBlind() const { return blind_; }

private:
    struct Report;
    void add(const std::string& folder, const std::set<std::string>& names);
    bool concerns(const Report& report);

    FileHandle watches_;
    std::map<int, std::set<std::string>> names_; ///< of the files, by the watch of their folder
    bool blind_ = false;
};

} // namespace pelrath
