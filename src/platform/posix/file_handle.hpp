#pragma once

#include <utility>

#include <unistd.h>

namespace pelrath {

/// Owns a handle of the system, -1 when there is none.
class FileHandle {
public:
    explicit FileHandle(int handle = -1) : handle_(handle) {}
    ~FileHandle() { close(); }
    FileHandle(FileHandle&& other) noexcept : handle_(std::exchange(other.handle_, -1)) {}
    FileHandle& operator=(FileHandle&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;

    [[nodiscard]] explicit operator bool() const { return handle_ >= 0; }
    [[nodiscard]] int get() const { return handle_; }
    void close() {
        if (handle_ >= 0) ::close(std::exchange(handle_, -1));
    }

private:
    int handle_;
};

} // namespace pelrath
