#pragma once

#include "archive/recovery.hpp"
#include "platform/message_boxes.hpp"
#include "platform/working_folder.hpp"

#include <set>
#include <string>

namespace pelrath {

/// Completes or gives up insertions that were interrupted, and tells in one message what was found.
class InsertionRecovery {
public:
    /// The program folder belongs to the caller and is looked at in each call.
    InsertionRecovery(MessageBoxes& boxes, const WorkingFolder& programFolder)
        : boxes_(boxes), programFolder_(programFolder) {}

    /// Is to come before an archive is read or written. What can neither be completed nor given up is told
    /// once.
    void look();

private:
    MessageBoxes& boxes_;
    const WorkingFolder& programFolder_;
    std::set<std::string> told_; ///< journals
};

} // namespace pelrath
