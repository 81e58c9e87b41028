#pragma once

#include "platform/posix/file_lock.hpp"
#include "platform/posix/files.hpp"

#include <optional>
#include <string>

namespace pelrath {

/// A file that is locked from before it has its name until this goes. The name stays: found without a holder,
/// the file is what a program left that has died.
class LockedFile {
public:
    enum class Naming { Free, Replacing };

    /// Makes it; it is whole and flushed once it has the name, which is the caller's to flush. Free: fails
    /// with FileExists where anything has that name. Replacing: any file that has it goes. Nothing stays of
    /// one that fails.
    [[nodiscard]] static LockedFile make(const std::string& path, Bytes content, Naming naming);

    /// Opens the file of that name and waits half a second for its lock. Nothing where there is none, or none
    /// any more once its holder is done.
    [[nodiscard]] static std::optional<LockedFile> find(const std::string& path);

    [[nodiscard]] LockAnswer lock() const { return lock_; }

private:
    LockedFile(FileHandle file, LockAnswer lock) : file_(std::move(file)), lock_(lock) {}

    FileHandle file_;
    LockAnswer lock_;
};

} // namespace pelrath
