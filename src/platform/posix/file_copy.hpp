#pragma once

#include "platform/posix/byte_copy.hpp"
#include "platform/posix/files.hpp"

#include <string>

namespace pelrath {

/// A flushed copy of a file that gets its name last, so that no part of a copy ever stands under one.
class FileCopy {
public:
    using Progress = CopyProgress; // see copyFlushed()

    /// Copies `source` into `folder`, by sharing its blocks where the file system can. The copy has the
    /// source's permissions. Fails where either cannot be had, where the disk is full, and where the copy's
    /// length is not the source's.
    FileCopy(const InputFile& source, const std::string& folder, const Progress& progress);

    /// Gives the copy its name in its folder, and flushes that too. False where anything has that name. Fails
    /// where the file system has no way to give a name that spares what has it already. One that only now
    /// shows to leave nameless files nameless costs a second copy.
    [[nodiscard]] bool takeName(const std::string& path);

private:
    void copy(int from, NewFile::Start start);
    [[noreturn]] void fail(int systemError) const;

    std::string folder_;
    Progress progress_;
    NewFile file_;
};

} // namespace pelrath
