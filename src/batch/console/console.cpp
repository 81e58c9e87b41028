#include "batch/console/console.hpp"

#include "batch/console/commands.hpp"
#include "batch/opened_archive.hpp"
#include "platform/runtime_error.hpp"
#include "platform/text.hpp"

#include <ostream>

namespace pelrath::batch {

namespace {

int perform(const Arguments& arguments, const Console& console) {
    switch (arguments.command) {
    case Command::List:
        return listTextures(arguments, console);
    case Command::Extract:
        return extractTextures(arguments, console);
    case Command::Insert:
        return insertTextures(arguments, console);
    case Command::Check:
        return checkArchive(arguments, console);
    case Command::Diff:
        return compareTwoArchives(arguments, console);
    case Command::Restore:
        return restoreTextures(arguments, console);
    case Command::Work:
        return workOnTextures(arguments, console);
    }
    return WrongUsage;
}

} // namespace

int run(const std::vector<std::string>& line, const Console& console) {
    const auto told = [&console](const std::exception& error, ExitCode code) {
        console.err << "pelrath-batch: " << visibleText(error.what()) << ".\n";
        return code;
    };
    try {
        int exitCode = AllWell;
        const std::optional<Arguments> arguments = parseArguments(line, console.out, console.err, exitCode);
        if (arguments) exitCode = perform(*arguments, console);
        console.out.flush();
        if (console.out) return exitCode;
        // What nobody could be told is not done.
        console.err << "pelrath-batch: the output could not be written.\n";
        return exitCode == AllWell ? NotAll : exitCode;
    } catch (const UnreadableArchive& error) {
        return told(error, Unreadable);
    } catch (const std::exception& error) {
        return told(error, NotAll);
    }
}

} // namespace pelrath::batch
