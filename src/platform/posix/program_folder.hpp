#pragma once

#include <string>

namespace pelrath {

/// The running executable's path.
[[nodiscard]] std::string executablePath();

/// The folder for the program's own files: the executable's own when it can be written, else the user's
/// data folder for the program (below XDG_DATA_HOME), made on first use. Never ends with a separator.
[[nodiscard]] std::string programFolder();
/// The other one of these two, whether it is there or not: what the program left under other permissions can
/// be in it.
[[nodiscard]] std::string otherProgramFolder();

/// The program for the command line beside the running one; empty where there is none that can be started.
[[nodiscard]] std::string batchExecutable();

/// The guide's text where it was installed, or where the program was built; empty where there is none.
[[nodiscard]] std::string guideFile();

} // namespace pelrath
