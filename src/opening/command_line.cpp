#include "opening/command_line.hpp"

#include "platform/posix/file_uri.hpp"
#include "platform/posix/files.hpp"
#include "platform/posix/full_path.hpp"
#include "platform/text.hpp"
#include "platform/version.hpp"

#include <algorithm>
#include <array>
#include <string_view>

namespace pelrath {

namespace {

using Wish = CommandLine::Wish;

constexpr const char* help = "Usage: pelrath [OPTION] [ARCHIVE]\n"
                             "Shows, extracts and inserts the textures of a .cdds archive.\n"
                             "\n"
                             "  -h, --help     print this and end\n"
                             "      --version  print the version and end\n"
                             "\n"
                             "ARCHIVE, a path or a file:// URI, is opened as if it had been chosen in the "
                             "window.\n";

CommandLine refusal(std::string text) { return {Wish::Refuse, {}, std::move(text)}; }

// How many words one of the toolkit's own options takes; 0 for any other word. Session managers give some.
int toolkitWords(std::string_view word) {
    constexpr std::array<std::string_view, 2> alone{"-reverse", "-sync"};
    constexpr std::array<std::string_view, 8> valued{
        "-display", "-name", "-platform", "-plugin", "-session", "-platformtheme", "-style", "-stylesheet"};
    if (std::find(alone.begin(), alone.end(), word) != alone.end()) return 1;
    return std::find(valued.begin(), valued.end(), word) != valued.end() ? 2 : 0;
}

CommandLine archiveAt(const std::string& word) {
    const bool remote = word.find("://") != std::string::npos && !fileExists(word);
    const auto local = remote ? pathOfUri(word) : pathFromRoot(word);
    if (!local) return refusal("Not a file of this machine: " + visibleText(word));
    if (!isUtf8(*local)) {
        return refusal("Not a name in UTF-8: " + visibleText(validUtf8(*local)) +
                       ". Please rename the file or its folder.");
    }
    if (!word.empty() && fileExists(*local)) return {Wish::Run, *local, {}};
    const bool folder = !word.empty() && folderExists(*local);
    return refusal((folder ? "A folder, no archive: " : "No such file: ") + visibleText(word));
}

} // namespace

CommandLine readCommandLine(std::span<const std::string> words) {
    const std::string* archive = nullptr;
    bool options = true;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string& word = words[i];
        if (const int taken = options ? toolkitWords(word) : 0; taken > 0) {
            i += static_cast<std::size_t>(taken - 1);
        } else if (options && word == "--") {
            options = false;
        } else if (options && (word == "-h" || word == "--help")) {
            return {Wish::Print, {}, help};
        } else if (options && word == "--version") {
            return {Wish::Print, {}, std::string{"Pelrath "} + programVersion + "\n"};
        } else if (options && word.size() > 1 && word.front() == '-') {
            return refusal("No such option: " + visibleText(validUtf8(word)) + ". See pelrath --help.");
        } else if (archive != nullptr) {
            return refusal("One archive too many: " + visibleText(validUtf8(word)) +
                           ". Please start the program once for each.");
        } else {
            archive = &word;
        }
    }
    return archive == nullptr ? CommandLine{} : archiveAt(*archive);
}

} // namespace pelrath
