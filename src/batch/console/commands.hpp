#pragma once

#include "batch/console/arguments.hpp"
#include "batch/console/console.hpp"

/// One function for each command; each answers the exit code. UnreadableArchive leaves them.
namespace pelrath::batch {

[[nodiscard]] int listTextures(const Arguments& arguments, const Console& console);
[[nodiscard]] int extractTextures(const Arguments& arguments, const Console& console);
/// Extracts what comes in as jobs.
[[nodiscard]] int workOnTextures(const Arguments& arguments, const Console& console);
[[nodiscard]] int insertTextures(const Arguments& arguments, const Console& console);
[[nodiscard]] int checkArchive(const Arguments& arguments, const Console& console);
[[nodiscard]] int compareTwoArchives(const Arguments& arguments, const Console& console);
[[nodiscard]] int restoreTextures(const Arguments& arguments, const Console& console);

} // namespace pelrath::batch
