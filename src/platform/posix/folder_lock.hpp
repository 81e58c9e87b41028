#pragma once

#include "platform/posix/file_handle.hpp"
#include "platform/posix/working_folder.hpp"

#include <string>

namespace pelrath {

/// A folder for this program alone, among its own copies, for as long as this lives: what it makes there
/// under names that are always the same, no other copy replaces or removes.
class FolderLock {
public:
    /// Takes the folder; waits half a second for it. Fails while another copy of the program has it, with a
    /// description that says what to do. The program's own folder is had for its whole life already. A folder
    /// that is not there, or has no locks, counts as taken: what is wrong then shows with the first file.
    FolderLock(const std::string& folder, const WorkingFolder& own);

    /// -1 where the folder cannot be opened.
    [[nodiscard]] int handle() const { return folder_.get(); }
    /// False where the file system has no locks, so that others may be at work in it all the same.
    [[nodiscard]] bool isCertain() const { return certain_; }

private:
    FileHandle folder_;
    bool certain_ = false;
};

} // namespace pelrath
