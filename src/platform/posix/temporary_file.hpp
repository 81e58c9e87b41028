#pragma once

#include "platform/posix/file_handle.hpp"

#include <string>
#include <string_view>

namespace pelrath {

/// An empty file of a unique name in the system's folder for temporary files, for as long as it lives. It is
/// locked meanwhile, which tells it from one that a dead program left.
class TemporaryFile {
public:
    /// The name is `~pelrath-` and six letters or digits, with `extension` behind a dot, or no dot where that
    /// is empty. Where no file can be made the path is empty.
    explicit TemporaryFile(std::string_view extension);
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    [[nodiscard]] const std::string& path() const { return path_; }
    /// Removes it now; fails as removeFile() does.
    void remove();

    [[nodiscard]] static bool isName(std::string_view name);

private:
    std::string path_;
    FileHandle file_;
};

} // namespace pelrath
