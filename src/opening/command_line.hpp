#pragma once

#include <span>
#include <string>

namespace pelrath {

/// What the words behind the program's name ask for.
struct CommandLine {
    enum class Wish {
        Run,    ///< the window, and in it `archive`, a path from the root, where that is not empty
        Print,  ///< `text` on the standard output, and no window
        Refuse, ///< `text` says in one line why
    };
    Wish wish = Wish::Run;
    std::string archive;
    std::string text;
};

/// Looks on the disk for the archive that is named. The options that the toolkit takes for itself are passed
/// over; behind "--" there are no options.
[[nodiscard]] CommandLine readCommandLine(std::span<const std::string> words);

} // namespace pelrath
