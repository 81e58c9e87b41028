#pragma once

#include "batch/report.hpp"
#include "copies/copy_looks.hpp"
#include "platform/busy_sign.hpp"
#include "session/session.hpp"

#include <functional>
#include <string>

namespace pelrath::copies {

/// What putting textures back needs of its window.
struct RestorationWatch {
    Beside beside;                                  ///< opens the copy, which may never answer
    std::function<bool()> stopIsAsked;              ///< between two textures, and while the copy is waited
                                                    ///< for; the window is painted meanwhile
    std::function<void(const std::string&)> begins; ///< tells what is being done
    BusySign* busy = nullptr;                       ///< shows the safe copy at work
    bool writeReadOnly = false; ///< that a read-only archive is made writable has been agreed on
};

/// Puts these textures of the session's archive back as they are in the copy, each in one transaction, after
/// a safe copy of the archive as it is into the folder. Answers what was done, a line each.
[[nodiscard]] std::string restoreFrom(const FoundCopy& copy, const batch::Plan& plan,
                                      const std::string& safeCopyFolder, Session& session,
                                      const RestorationWatch& watch);

} // namespace pelrath::copies
