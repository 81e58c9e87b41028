#pragma once

#include "platform/posix/file_handle.hpp"
#include "platform/posix/file_lock.hpp"
#include "platform/posix/private_folder.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace pelrath {

/// The folder of the program's own files. Its temporary files (temporaryNames) have one user at a time: the
/// first program that lives has the folder locked until it ends, and any other puts its own into a private
/// folder. So does the first where a file cannot be put here, or where the file system has no locks.
class WorkingFolder {
public:
    /// None: relative to the current one.
    WorkingFolder() = default;
    WorkingFolder(const WorkingFolder&) = delete;
    WorkingFolder& operator=(const WorkingFolder&) = delete;
    /// From here on it is the folder of this path.
    WorkingFolder& operator=(const std::string& path);

    [[nodiscard]] const std::string& path() const { return path_; }

    /// Held: it is this program's, as it becomes once no other lives that had it before. Unknown: the file
    /// system has no locks.
    [[nodiscard]] LockAnswer lock() const;
    [[nodiscard]] bool isOurs() const { return lock() == LockAnswer::Held; }
    /// True for a handle that has opened this very folder.
    [[nodiscard]] bool isFolder(int handle) const;

    /// Where the temporary file of that name can be put now. Here, too, where there is no room for a private
    /// folder: what is wrong is then told by whoever writes the file. Fails instead where another program has
    /// the one here.
    [[nodiscard]] std::string pathFor(std::string_view name) const;
    /// Where a file can be put that no other program sees; empty where there is no room.
    [[nodiscard]] std::string privatePathFor(std::string_view name) const;

    /// Removes all temporary files that are this program's, read-only or not. What cannot be removed, and
    /// why: one line each.
    [[nodiscard]] std::vector<std::string> removeTemporaryFiles() const;

private:
    std::string path_;
    FileHandle folder_;             // locked or not
    mutable PrivateFolder private_; // made when it is first needed
};

} // namespace pelrath
