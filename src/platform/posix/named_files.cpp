#include "platform/posix/named_files.hpp"

#include "platform/posix/files.hpp"

#include <algorithm>

namespace pelrath {

namespace {

constexpr std::string_view before = " \t\"'(";       // what a path may begin behind
constexpr std::string_view behind = " \t.,:;!?\"')"; // what may end the words around it

// The longest file that the line begins with; empty if none.
std::string_view fileAtStart(std::string_view line) {
    while (!line.empty()) {
        if (fileExists(std::string{line})) return line;
        const std::size_t cut = line.find_last_of(behind);
        line = cut == std::string_view::npos ? "" : line.substr(0, cut);
    }
    return line;
}

void collect(std::string_view line, std::vector<std::string>& files) {
    for (std::size_t at = line.find('/'); at != std::string_view::npos; at = line.find('/', at)) {
        const bool begins = at == 0 || before.find(line[at - 1]) != std::string_view::npos;
        const std::string_view file = begins ? fileAtStart(line.substr(at)) : "";
        const bool known = std::find(files.begin(), files.end(), file) != files.end();
        if (!file.empty() && !known) files.emplace_back(file);
        at += std::max<std::size_t>(file.size(), 1);
    }
}

} // namespace

std::vector<std::string> filesNamedIn(std::string_view text) {
    std::vector<std::string> files;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
        collect(text.substr(0, end), files);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return files;
}

} // namespace pelrath
