#pragma once

#include <string>

namespace pelrath {

/// A file that is there only while this lives: what stood at `path` before is removed at its beginning, and
/// whatever was made there meanwhile at its end.
class ScratchFile {
public:
    /// Fails as removeFile() does.
    explicit ScratchFile(std::string path);
    ~ScratchFile();
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;

    [[nodiscard]] const std::string& path() const { return path_; }

private:
    std::string path_;
};

} // namespace pelrath
