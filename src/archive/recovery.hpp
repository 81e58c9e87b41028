#pragma once

#include "platform/posix/file_identity.hpp"
#include "platform/posix/files.hpp"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace pelrath {

/// An insertion that was interrupted, and what became of it now.
struct RecoveredInsertion {
    enum class Outcome {
        Completed,      ///< every level has its new bytes
        NothingWritten, ///< every level has its old bytes, be it that they were put back since
        Kept,           ///< neither can be made sure: the journal stays where it is
    };

    Outcome outcome = Outcome::Kept;
    std::string journal; ///< its path
    std::string archivePath;
    std::string textureName; ///< both empty where the journal itself cannot be read
    std::size_t levels = 0;
    bool readOnlyAgain = false; ///< the archive has got the permissions back that it had before
    std::string reason;         ///< why the journal is still there, without a full stop
    FileIdentity archive;       ///< as it is now, and
    std::uint32_t tables = 0;   ///< its tablesChecksum(); nothing of these two where it is another
};

/// Looks for journals in a program folder and brings each archive that one is of into a state of which the
/// whole insertion or nothing of it is part. Only what is a mixture of old and new bytes is written over; an
/// archive that holds anything else by now is somebody else's work: it gets no more than its permissions
/// back, and the journal is kept. An archive that a living program works on is left alone and not in the
/// answer; so is a journal whose end is missing, which is removed: nothing had been written then. Never
/// throws.
[[nodiscard]] std::vector<RecoveredInsertion> recoverInsertions(const std::string& programFolder);

/// The textures whose insertion into this very archive was interrupted and waits to be completed, as the
/// journals in a program folder say. Nothing is changed; journals that cannot be read, and an insertion that
/// is under way, are left out. Never throws.
[[nodiscard]] std::vector<std::string> interruptedInsertions(const std::string& programFolder,
                                                             const InputFile& archive);

} // namespace pelrath
