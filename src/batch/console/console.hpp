#pragma once

#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

/// The program pelrath-batch, but for what it has of its process.
namespace pelrath::batch {

enum ExitCode : int {
    AllWell = 0,
    NotAll = 1,     ///< something differs, is damaged, or was not done
    WrongUsage = 2, ///< nothing was tried
    Unreadable = 3, ///< an archive cannot be read, or is none
    Stopped = 4,    ///< before all was done
};

struct Console {
    std::istream& in;
    std::ostream& out; ///< what was asked for
    std::ostream& err; ///< what is to be told
    bool terminal;     ///< somebody looks at `err`: progress is shown
    std::string programFolder;
    std::string executable; ///< of the program, which is started again for more cores; empty: not at all
    std::function<bool()> stopIsAsked;
    std::string otherProgramFolder = {}; ///< as the session's
};

/// Runs a command line without the program's name, and answers the exit code.
[[nodiscard]] int run(const std::vector<std::string>& line, const Console& console);

} // namespace pelrath::batch
