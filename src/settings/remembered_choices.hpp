#pragma once

#include "platform/posix/profile_file.hpp"

#include <string>

namespace pelrath {

/// The choices that the texture's dialog begins with, in its own words; empty: those of every dialog.
struct RememberedChoices {
    std::string extraction;
    std::string insertion;

    /// Kept in a section of its own, which is made when something is first remembered.
    void load(const Profile& profile);
    void save(Profile& profile) const;
};

} // namespace pelrath
