#pragma once

#include "platform/file_handle.hpp"
#include "platform/files.hpp"

#include <cstdint>
#include <functional>
#include <string>

namespace pelrath {

/// A flushed copy of a file that gets its name last, so that no part of a copy ever stands under one: killed
/// before, the program leaves no file (or, where a file system has no nameless files, a hidden one).
class FileCopy {
public:
    /// Bytes copied of all; called before the first and after each part of 32 MB.
    using Progress = std::function<void(std::uint64_t done, std::uint64_t total)>;

    /// Copies `source` into `folder`, by sharing its blocks where the file system can. The copy has the
    /// source's permissions. Fails where either cannot be had, where the disk is full, and where the copy's
    /// length is not the source's.
    FileCopy(const InputFile& source, const std::string& folder, const Progress& progress);
    FileCopy(const FileCopy&) = delete;
    FileCopy& operator=(const FileCopy&) = delete;

    /// Gives the copy its name in its folder, and flushes that too. False where anything has that name.
    [[nodiscard]] bool takeName(const std::string& path);

private:
    void create(const std::string& folder);
    [[nodiscard]] bool link(const std::string& path) const;
    [[nodiscard]] bool rename(const std::string& path);

    /// The copy's name until it gets its own, where it must have one.
    struct HiddenName {
        ~HiddenName();
        std::string path;
    };
    FileHandle copy_;
    HiddenName hidden_;
};

} // namespace pelrath
