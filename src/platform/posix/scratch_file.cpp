#include "platform/posix/scratch_file.hpp"

#include "platform/posix/files.hpp"
#include "platform/posix/folder_handle.hpp"
#include "platform/runtime_error.hpp"

namespace pelrath {

ScratchFile::ScratchFile(const std::string& path)
    : path_(path), folder_(openFolder(std::string{parentFolder(path)})) {
    remove();
}

ScratchFile::~ScratchFile() {
    if (folder_) ::unlinkat(folder_.get(), std::string{fileName(path_)}.c_str(), 0);
}

void ScratchFile::remove() const {
    if (!folder_ || ::unlinkat(folder_.get(), std::string{fileName(path_)}.c_str(), 0) == 0) return;
    if (errno == ENOENT) return;
    throw makeSystemError(errno, "ScratchFile",
                          "a temporary file cannot be removed; please do so by hand: " + path_);
}

} // namespace pelrath
