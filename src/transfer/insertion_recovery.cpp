#include "transfer/insertion_recovery.hpp"

#include "platform/text.hpp"

namespace pelrath {

namespace {

using Outcome = RecoveredInsertion::Outcome;

constexpr const char* paragraph = "\r\n\r\n";

std::string levelsOf(const RecoveredInsertion& one) {
    return one.levels == 1 ? "its level has" : "all its " + std::to_string(one.levels) + " levels have";
}

std::string beginning(const RecoveredInsertion& one) {
    if (one.archivePath.empty()) return "An insertion was interrupted";
    return "The insertion of the texture \"" + visibleText(one.textureName) + "\" into " + one.archivePath +
           " was interrupted";
}

std::string kept(const RecoveredInsertion& one) {
    return beginning(one) + " and cannot be completed: " + one.reason + "." + paragraph +
           "What was to be written is kept in " + one.journal +
           ". Please set that right and start the program again, or remove that file to give the insertion "
           "up.";
}

std::string textOf(const RecoveredInsertion& one) {
    std::string text;
    switch (one.outcome) {
    case Outcome::Kept:
        return kept(one);
    case Outcome::Completed:
        text = beginning(one) + ". It has been completed now: " + levelsOf(one) + " the new data.";
        break;
    case Outcome::NothingWritten:
        // It can also have come to its end, but for the permissions.
        if (one.readOnlyAgain && one.levels == 0) {
            return beginning(one) +
                   ". The archive is read only again now. Where no summary was shown, nothing "
                   "was written: please insert the texture again.";
        }
        text = beginning(one) + (one.levels == 0 ? " before anything was written."
                                                 : ", and the archive has the old data again.");
        text += " Please insert the texture again.";
        break;
    }
    return one.readOnlyAgain ? text + " The archive is read only again." : text;
}

} // namespace

void InsertionRecovery::look() {
    std::string text;
    for (const RecoveredInsertion& one : recoverInsertions(session_.programFolder.path())) {
        if (one.outcome == Outcome::Completed)
            session_.archiveFile.heedCompletion(one.archive, one.tables, session_.archive);
        if (one.outcome == Outcome::Kept && !told_.insert(one.journal).second) continue;
        text += (text.empty() ? "" : paragraph) + textOf(one);
    }
    if (!text.empty()) boxes_.exclamation(text, "Pelrath - Interrupted insertion");
}

} // namespace pelrath
