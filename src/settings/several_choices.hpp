#pragma once

#include "platform/posix/profile_file.hpp"

#include <cstdint>
#include <string>

namespace pelrath {

/// The choices for many textures at once, kept for as long as the user wants that.
struct SeveralChoices {
    bool remembered = false;
    bool images = false;     ///< images of each texture's own kind; otherwise DDS files
    std::int16_t levels = 0; ///< of an extraction: the largest, all, a chain
    bool create = false;     ///< an insertion makes all levels of the largest one
    std::int16_t filter = 2; ///< with which: the place in the dialog's list
    std::string folder;      ///< of the files
    bool overwrite = false;

    /// Kept in a section of its own, which is made when they are first remembered. What cannot be is the
    /// default.
    void load(const Profile& profile);
    void save(Profile& profile) const;
};

} // namespace pelrath
