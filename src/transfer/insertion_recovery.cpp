#include "transfer/insertion_recovery.hpp"

#include "platform/text.hpp"

#include <string_view>

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
    const std::string rest =
        "Please set that right and start the program again, or remove that file to give the insertion up.";
    if (one.levels == 0 && !one.archivePath.empty()) {
        return beginning(one) + " and cannot be ended: " + one.reason + "." + paragraph +
               "Nothing is to be written any more, but the archive may have to be made read only again, as " +
               one.journal + " says. " + rest;
    }
    if (one.archivePath.empty()) {
        return beginning(one) + " and cannot be completed: " + one.reason + "." + paragraph +
               "Please compare the archives that were worked on last with their safe copies, and remove " +
               one.journal + ".";
    }
    return beginning(one) + " and cannot be completed: " + one.reason + "." + paragraph +
           (one.readOnlyAgain ? "The archive is read only again. " : "") +
           "What was to be written is kept in " + one.journal + ". " + rest;
}

std::string nothingWritten(const RecoveredInsertion& one) {
    const std::string again = one.readOnlyAgain ? " The archive is read only again now." : "";
    if (one.levels == 0) {
        // It can also have come to its end, but for the permissions.
        return beginning(one) + "." + again +
               " Where no summary was shown, nothing was written: please insert the texture again.";
    }
    return beginning(one) + ", and the archive has the old data. Please insert the texture again." + again;
}

std::string textOf(const RecoveredInsertion& one) {
    if (one.outcome == Outcome::Kept) return kept(one);
    std::string text = nothingWritten(one);
    if (one.outcome == Outcome::Completed) {
        text = beginning(one) + ". It has been completed now: " + levelsOf(one) + " the new data." +
               (one.readOnlyAgain ? " The archive is read only again." : "");
    }
    if (one.reason.empty()) return text;
    return text + paragraph + "Its journal " + one.journal + " could not be removed: " + one.reason +
           ". Please remove it.";
}

} // namespace

void InsertionRecovery::look() {
    std::string text;
    for (const std::string& folder : {session_.programFolder.path(), session_.otherProgramFolder}) {
        for (const RecoveredInsertion& one : recoverInsertions(folder)) {
            text += toTell(one);
        }
    }
    if (text.empty()) return;
    text.resize(text.size() - std::string_view{paragraph}.size());
    boxes_.exclamation(text, "Pelrath - Interrupted insertion");
}

std::string InsertionRecovery::toTell(const RecoveredInsertion& one) {
    if (one.outcome != Outcome::Kept)
        session_.archiveFile.heedCompletion(one.archive, one.tables, session_.archive);
    const bool stays = !one.reason.empty();
    if (!stays) told_.erase(one.journal);
    if (stays && !told_.insert(one.journal).second) return {};
    return textOf(one) + paragraph;
}

} // namespace pelrath
