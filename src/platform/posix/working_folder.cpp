#include "platform/posix/working_folder.hpp"

#include "platform/posix/files.hpp"
#include "platform/posix/folder_handle.hpp"
#include "platform/runtime_error.hpp"

namespace pelrath {

namespace {

bool canBePut(const std::string& path) try {
    const FileReplacement attempt{path};
    return true;
} catch (const RuntimeError&) {
    return false;
}

} // namespace

WorkingFolder& WorkingFolder::operator=(const std::string& path) {
    path_ = path;
    folder_ = openFolderToRead(path);
    return *this;
}

LockAnswer WorkingFolder::lock() const {
    return folder_ ? tryLock(folder_.get(), LockKind::Exclusive) : LockAnswer::Unknown;
}

bool WorkingFolder::isFolder(int handle) const {
    struct stat own {};
    struct stat other {};
    return folder_ && ::fstat(folder_.get(), &own) == 0 && ::fstat(handle, &other) == 0 && isSame(own, other);
}

std::string WorkingFolder::pathFor(std::string_view name) const {
    std::string here = joinPath(path_, name);
    const LockAnswer answer = lock();
    if (answer == LockAnswer::Held && canBePut(here)) return here;
    if (std::string own = privatePathFor(name); !own.empty()) return own;
    if (answer != LockAnswer::Taken) return here;
    throw makeError(ErrorNumber::PermissionDenied, "WorkingFolder",
                    here + " is in use by another running copy of this program, and there is no room for "
                           "another in the system's folder for temporary files. Please end that copy, or "
                           "make room");
}

std::string WorkingFolder::privatePathFor(std::string_view name) const {
    const std::string& folder = private_.path();
    return folder.empty() ? std::string{} : joinPath(folder, name);
}

std::vector<std::string> WorkingFolder::removeTemporaryFiles() const {
    std::vector<std::string> left;
    if (isOurs()) {
        for (const char* name : temporaryNames) {
            try {
                removeFile(joinPath(path_, name));
            } catch (const RuntimeError& error) {
                left.push_back(error.description());
            }
        }
    }
    if (const int error = private_.remove(); error != 0)
        left.push_back(makeSystemError(error, "WorkingFolder", private_.path()).description());
    return left;
}

} // namespace pelrath
