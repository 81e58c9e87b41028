#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace pelrath {

/// An insertion that was interrupted, and what became of it now.
struct RecoveredInsertion {
    enum class Outcome {
        Completed,      ///< every level has its new bytes
        NothingWritten, ///< every level has its old bytes
        Kept,           ///< neither can be made sure: the journal stays where it is
    };

    Outcome outcome = Outcome::Kept;
    std::string journal; ///< its path
    std::string archivePath;
    std::string textureName; ///< both empty where the journal itself cannot be read
    std::size_t levels = 0;
    bool readOnlyAgain = false; ///< the archive has got the permissions back that it had before
    std::string reason;         ///< of Kept, without a full stop
};

/// Looks for journals in the program folder and brings each archive that one is of into a state of which the
/// whole insertion or nothing of it is part. An archive that a living program works on is left alone and not
/// in the answer; so is a journal whose end is missing, which is removed: nothing had been written then.
/// Never throws.
[[nodiscard]] std::vector<RecoveredInsertion> recoverInsertions(const std::string& programFolder);

} // namespace pelrath
