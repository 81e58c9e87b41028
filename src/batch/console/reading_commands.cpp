#include "batch/comparison.hpp"
#include "batch/console/commands.hpp"
#include "batch/console/interruptions.hpp"
#include "batch/console/list.hpp"
#include "batch/opened_archive.hpp"

#include <ostream>

namespace pelrath::batch {

namespace {

int exitCodeOf(std::size_t findings, const Console& console, Telling& telling) {
    if (console.stopIsAsked()) {
        telling.message("stopped before all was looked at");
        return Stopped;
    }
    return findings == 0 ? AllWell : NotAll;
}

} // namespace

int listTextures(const Arguments& arguments, const Console& console) {
    Session session;
    openArchive(session, arguments.archive);
    Telling telling{console, false, nullptr};
    tellInterrupted(arguments.archive, console, telling);
    if (arguments.json) {
        listAsJson(session.archive, arguments.archive, console.out);
    } else {
        listAsTable(session.archive, console.out);
    }
    return AllWell;
}

int checkArchive(const Arguments& arguments, const Console& console) {
    Session session;
    const ArchiveContents contents = openArchive(session, arguments.archive);
    Telling telling{console, false, nullptr};
    const std::size_t interrupted = tellInterrupted(arguments.archive, console, telling);
    const auto tell = [&telling](const std::string& finding) { telling.result(finding); };
    return exitCodeOf(interrupted + checkLevels(session, contents, telling, tell), console, telling);
}

int compareTwoArchives(const Arguments& arguments, const Console& console) {
    Session one;
    Session other;
    openArchive(one, arguments.archive);
    openArchive(other, arguments.other);
    Telling telling{console, false, nullptr};
    for (const std::string& archive : {arguments.archive, arguments.other}) {
        tellInterrupted(archive, console, telling);
    }
    const auto tell = [&telling](const std::string& finding) { telling.result(finding); };
    return exitCodeOf(compareArchives(one, other, telling, tell), console, telling);
}

} // namespace pelrath::batch
