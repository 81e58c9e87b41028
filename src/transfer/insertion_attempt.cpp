#include "transfer/insertion_attempt.hpp"

#include "archive/archive_file.hpp"
#include "transfer/failure_report.hpp"

namespace pelrath {

bool attemptInsertion(MessageBoxes& boxes, const std::function<void()>& work) {
    bool refused = false;
    const auto guarded = [&] {
        try {
            work();
        } catch (const ArchiveRefused& refusal) {
            refused = true;
            boxes.exclamation("The insertion was stopped: " + refusal.description() + ".",
                              "Pelrath - Insertion refused");
        }
    };
    return attempt(boxes, {"Insertion Error Number: ", "Insertion Error : "}, guarded) && !refused;
}

} // namespace pelrath
