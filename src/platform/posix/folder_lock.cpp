#include "platform/posix/folder_lock.hpp"

#include "platform/posix/file_lock.hpp"
#include "platform/posix/folder_handle.hpp"
#include "platform/runtime_error.hpp"

namespace pelrath {

FolderLock::FolderLock(const std::string& folder, const WorkingFolder& own)
    : folder_(openFolderToRead(folder)) {
    if (!folder_) return;
    // The program's own folder is open once already: a second lock would be refused by the first.
    const LockAnswer answer =
        own.isFolder(folder_.get()) ? own.lock() : waitForLock(folder_.get(), LockKind::Exclusive);
    certain_ = answer == LockAnswer::Held;
    if (answer != LockAnswer::Taken) return;
    throw makeError(ErrorNumber::PermissionDenied, "FolderLock",
                    folder + " is in use by another running copy of this program. Please try again when that "
                             "is done, or choose another folder");
}

} // namespace pelrath
