#pragma once

#include "batch/extraction_plan.hpp"
#include "batch/insertion_plan.hpp"
#include "several/told_lines.hpp"

#include <memory>
#include <optional>

namespace pelrath::several {

/// What is to be done, with which textures and which folders.
struct Wish {
    bool insertion = false;
    std::string folder; ///< of the files, from the root; empty: none is chosen
    batch::ExtractionWish extraction;
    batch::InsertionWish files;
    bool safeCopy = false; ///< before an insertion
    std::string safeCopyFolder;
};

/// What a plan is made of. It refers to nothing else, so that this can be done beside the window.
struct PlanQuestion {
    Wish wish;
    std::vector<std::int16_t> checked;
    /// What the folder has for the archive, as it was seen before; null: the folder is to be looked at.
    std::shared_ptr<const batch::Plan> folderPlan;
    /// The marks are to be those for which the folder has files.
    bool findsTextures = false;
};

struct PlanAnswer {
    batch::Plan plan;
    std::shared_ptr<const batch::Plan> folderPlan;  ///< of an insertion
    std::optional<std::vector<std::int16_t>> found; ///< where textures were to be found
    ToldLines lines;                                ///< what would be done, and what cannot be
    std::string summary;                            ///< of these, or what is missing for a plan
    bool workable = false;
};

/// Makes the plan for the archive of a session, of which only the archive and its path are looked at.
[[nodiscard]] PlanAnswer answer(const Session& session, const PlanQuestion& question);

} // namespace pelrath::several
