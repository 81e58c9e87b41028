#include "transfer/insertion_attempt.hpp"

#include "transfer/archive_as_read.hpp"
#include "transfer/failure_report.hpp"

namespace pelrath {

bool attemptInsertion(MessageBoxes& boxes, const std::function<void()>& work) try {
    return attempt(boxes, {"Insertion Error Number: ", "Insertion Error : "}, work);
} catch (const ArchiveRefused& refused) {
    boxes.exclamation(refused.what(), "Pelrath - Insertion refused");
    return false;
}

} // namespace pelrath
