#pragma once

#include <functional>
#include <string>
#include <vector>

namespace pelrath {

/// Tells that something may have happened to files: that they were written, replaced, made or removed.
class FileWatch {
public:
    virtual ~FileWatch() = default;

    /// Watches these files from now on, by their paths from the root and whether they are there or not, and
    /// no others. Without any, nothing is watched, and nothing is spent on it.
    virtual void follow(const std::vector<std::string>& paths) = 0;

    /// Something may have happened to one of them. Called from the event loop, whatever else goes on there,
    /// and soon after; where a folder's changes do not show by themselves, a few seconds later.
    std::function<void()> happened;
};

} // namespace pelrath
