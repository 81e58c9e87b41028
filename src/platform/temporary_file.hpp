#pragma once

#include <string>
#include <string_view>

namespace pelrath {

/// An empty file of a unique name in the system's folder for temporary files, for as long as it lives.
class TemporaryFile {
public:
    /// The name starts with `prefix` and has `extension` behind its dot, or no dot where that is empty. Where
    /// no file can be made the path is empty.
    TemporaryFile(std::string_view prefix, std::string_view extension);
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    [[nodiscard]] const std::string& path() const { return path_; }
    /// Removes it now; fails as removeFile() does.
    void remove();

private:
    std::string path_;
};

} // namespace pelrath
