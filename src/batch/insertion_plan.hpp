#pragma once

#include "batch/plan.hpp"
#include "session/session.hpp"

#include <cstdint>
#include <string>
#include <vector>

namespace pelrath::batch {

/// Which of the files in a folder are meant.
enum class FilesOf { AnyKind, Dds, Images };

struct InsertionWish {
    bool create = false;     ///< all levels are made of the largest one's file
    std::int16_t filter = 2; ///< with which they are made: the place in the dialog's list; 2 is bilinear
    FilesOf files = FilesOf::AnyKind; ///< in folders
};

/// What an insertion of these files, and of those in these folders, would write into the session's archive.
/// Files are known by the names that extraction gives them, and looked at: one whose picture has not the
/// level's sides, or whose blocks are of another type, is refused, and so is one that is too short. A DDS
/// file of level 0 whose header counts as many levels as the texture has is taken for the whole chain. Where
/// a file of a texture is refused, all are. Other files in a folder are left out.
[[nodiscard]] Plan planInsertion(const Session& session, const std::vector<std::string>& filesAndFolders,
                                 const InsertionWish& wish);

} // namespace pelrath::batch
