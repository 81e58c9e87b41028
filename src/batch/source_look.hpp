#pragma once

#include "batch/file_names.hpp"
#include "batch/plan.hpp"

namespace pelrath::batch {

/// Looks at a file that is to be inserted into a level of the texture, and says what would be written of it,
/// or why it cannot be. `create`: all levels are made of it.
[[nodiscard]] PlannedFile lookAtSource(const std::string& path, const TextureRecord& texture,
                                       const FilePlace& place, bool create);

} // namespace pelrath::batch
