#pragma once

#include "batch/extraction_plan.hpp"

#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace pelrath::batch {

/// What the console program can be asked to do.
enum class Command { List, Extract, Insert, Check, Diff, Restore, Work };

/// What it was asked to do; what does not belong to the command is as given here.
struct Arguments {
    Command command = Command::List;
    std::string archive;
    std::string other;               ///< the second archive of a comparison, the copy of a restoration
    std::vector<std::string> chosen; ///< names and patterns of textures, or files and folders
    bool json = false;
    ExtractionWish extraction;
    bool create = false;
    std::int16_t filter = 2; ///< bilinear: by its place in the dialog's list
    std::string safeCopyFolder;
    bool noSafeCopy = false; ///< one of the two is given
    bool writeReadOnly = false;
    bool dryRun = false;
    bool quiet = false;
    std::uint32_t tables = 0; ///< checksum of the archive that a worker is for
};

/// Reads a command line without the program's name. Help and version are told on `out`, what is wrong on
/// `err`; then there is nothing to do, and `exitCode` is set.
[[nodiscard]] std::optional<Arguments> parseArguments(const std::vector<std::string>& line, std::ostream& out,
                                                      std::ostream& err, int& exitCode);

} // namespace pelrath::batch
