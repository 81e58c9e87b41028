#include "settings/recent_archives.hpp"

#include <algorithm>
#include <limits>

namespace pelrath {

namespace {

constexpr const char* section = "Recent";
constexpr std::size_t anyLength = std::numeric_limits<std::size_t>::max();

std::string keyOf(std::size_t index) { return std::to_string(index + 1); }

} // namespace

void RecentArchives::add(const std::string& path) {
    if (path.empty() || path.find_first_of("\r\n") != std::string::npos) return;
    std::erase(paths_, path);
    paths_.insert(paths_.begin(), path);
    paths_.resize(std::min(paths_.size(), most));
}

void RecentArchives::load(const Profile& profile) {
    paths_.clear();
    for (std::size_t i = most; i > 0; --i) {
        add(profile.text(section, keyOf(i - 1), anyLength).value_or("")); // what was put in by hand, too
    }
}

void RecentArchives::save(Profile& profile) const {
    for (std::size_t i = 0; i < most; ++i) {
        const bool listed = i < paths_.size();
        if (listed || profile.text(section, keyOf(i), anyLength)) {
            profile.put(section, keyOf(i), listed ? paths_[i] : "");
        }
    }
}

} // namespace pelrath
