#include "platform/temporary_file.hpp"

#include "platform/files.hpp"

#include <cstdlib>
#include <filesystem>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace pelrath {

TemporaryFile::TemporaryFile(std::string_view prefix, std::string_view extension) {
    std::error_code noFolder;
    const std::string folder = std::filesystem::temp_directory_path(noFolder);
    if (noFolder) return;
    const std::string suffix = extension.empty() ? "" : "." + std::string{extension};
    path_ = joinPath(folder, std::string{prefix} + "XXXXXX" + suffix);
    const int handle = ::mkostemps(path_.data(), static_cast<int>(suffix.size()), O_CLOEXEC);
    if (handle < 0) {
        path_.clear();
    } else {
        ::close(handle);
    }
}

TemporaryFile::~TemporaryFile() {
    if (!path_.empty()) ::unlink(path_.c_str());
}

void TemporaryFile::remove() {
    if (!path_.empty()) removeFile(std::exchange(path_, {}));
}

} // namespace pelrath
