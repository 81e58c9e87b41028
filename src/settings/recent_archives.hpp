#pragma once

#include "platform/posix/profile_file.hpp"

#include <string>
#include <vector>

namespace pelrath {

/// The archives that were opened last, the newest first, by their paths from the root.
class RecentArchives {
public:
    static constexpr std::size_t most = 10;

    [[nodiscard]] const std::vector<std::string>& paths() const { return paths_; }

    /// The archive is the newest from now on. One whose path a profile cannot hold is not remembered.
    void add(const std::string& path);
    void clear() { paths_.clear(); }

    /// Kept in a section of its own, which is made with the first archive.
    void load(const Profile& profile);
    void save(Profile& profile) const;

private:
    std::vector<std::string> paths_;
};

} // namespace pelrath
