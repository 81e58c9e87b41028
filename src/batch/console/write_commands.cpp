#include "batch/console/commands.hpp"

#include "batch/console/interruptions.hpp"
#include "batch/insertion.hpp"
#include "batch/opened_archive.hpp"
#include "batch/restoration.hpp"
#include "platform/posix/file_mode.hpp"
#include "transfer/insertion_recovery.hpp"

#include <functional>

namespace pelrath::batch {

namespace {

/// Completes what was interrupted, and reads the archive behind that.
void openToWrite(Session& session, const Arguments& arguments, const Console& console, Telling& telling) {
    session.programFolder = console.programFolder;
    session.otherProgramFolder = console.otherProgramFolder;
    if (arguments.dryRun) {
        tellInterrupted(arguments.archive, console, telling);
    } else {
        CollectedMessages messages;
        InsertionRecovery{messages, session}.look();
        for (const std::string& line : messages.take()) {
            telling.message(line);
        }
    }
    openArchive(session, arguments.archive);
}

/// Why a run would write nothing at all, whatever is planned; empty where nothing keeps it.
std::string whyNothing(const Arguments& arguments) {
    if (!arguments.writeReadOnly && isReadOnly(fileMode(InputFile{arguments.archive})))
        return arguments.archive + " is read-only: without --write-read-only nothing is done";
    if (!arguments.noSafeCopy && !folderExists(arguments.safeCopyFolder))
        return arguments.safeCopyFolder + " is no folder: without the safe copy nothing is done";
    return {};
}

using Run = std::function<Report(const WritingTerms&)>;

/// `words` say what is done with what the plan has: "files inserted".
int carryOut(const Arguments& arguments, Session& session, const Plan& plan, const std::string& words,
             Telling& telling, const Run& run) {
    if (arguments.dryRun) {
        const Report report = asIfDone(plan);
        for (const TextureReport& texture : report.textures) {
            telling.ended(texture);
        }
        if (const std::string reason = whyNothing(arguments); !reason.empty()) {
            telling.message(reason);
            return NotAll;
        }
        return telling.conclude(report, words + ", were it no dry run");
    }
    const Report report = run({arguments.safeCopyFolder, arguments.writeReadOnly, &telling});
    (void)session.programFolder.removeTemporaryFiles();
    if (!report.safeCopy.empty() && !arguments.quiet) telling.message("safe copy: " + report.safeCopy);
    return telling.conclude(report, words);
}

} // namespace

int insertTextures(const Arguments& arguments, const Console& console) {
    Session session;
    Telling telling{console, arguments.quiet, insertedLine};
    openToWrite(session, arguments, console, telling);
    const InsertionWish wish{arguments.create, arguments.filter};
    const Plan plan = planInsertion(session, arguments.chosen, wish);
    return carryOut(arguments, session, plan, "file(s) inserted", telling, [&](const WritingTerms& terms) {
        return runInsertion(session, plan, wish, terms, telling);
    });
}

int restoreTextures(const Arguments& arguments, const Console& console) {
    Session session;
    Session copy;
    Telling telling{console, arguments.quiet, insertedLine};
    openToWrite(session, arguments, console, telling);
    openArchive(copy, arguments.other);
    std::vector<std::string> unmatched;
    const auto textures = chosenTextures(session.archive, arguments.chosen, unmatched);
    const Plan plan = planRestoration(session, copy, textures);
    const int exitCode =
        carryOut(arguments, session, plan, "level(s) restored", telling, [&](const WritingTerms& terms) {
            return runRestoration(session, copy, plan, terms, telling);
        });
    return telling.missing(unmatched, arguments.archive, exitCode);
}

} // namespace pelrath::batch
