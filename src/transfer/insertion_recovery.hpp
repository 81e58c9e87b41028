#pragma once

#include "archive/recovery.hpp"
#include "platform/message_boxes.hpp"
#include "session/session.hpp"

#include <set>
#include <string>

namespace pelrath {

/// Completes or gives up insertions that were interrupted, and tells in one message what was found.
class InsertionRecovery {
public:
    InsertionRecovery(MessageBoxes& boxes, Session& session) : boxes_(boxes), session_(session) {}

    /// Is to come before an archive is read or written. What stays, for whatever reason, is told once. The
    /// archive in use stays in use.
    void look();

private:
    /// With an empty line behind it; nothing where it has been told.
    [[nodiscard]] std::string toTell(const RecoveredInsertion& one);

    MessageBoxes& boxes_;
    Session& session_;
    std::set<std::string> told_; ///< journals
};

} // namespace pelrath
