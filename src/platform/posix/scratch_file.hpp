#pragma once

#include "platform/posix/file_handle.hpp"

#include <string>

namespace pelrath {

/// A file that is there only while this lives: what stood at `path` before is removed at its beginning, and
/// whatever was made there meanwhile at its end, in the very folder that it was in at the beginning.
class ScratchFile {
public:
    /// Fails as remove() does. A folder that is not there is no failure: it shows when the file is made.
    explicit ScratchFile(const std::string& path);
    /// The last resort, where nothing can be told.
    ~ScratchFile();
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;

    [[nodiscard]] const std::string& path() const { return path_; }
    /// Removes it now. Fails where it is there and cannot be removed, with a description that says what to
    /// do.
    void remove() const;

private:
    std::string path_;
    FileHandle folder_;
};

} // namespace pelrath
