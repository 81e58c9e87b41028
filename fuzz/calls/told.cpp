#include "calls/told.hpp"

#include <algorithm>
#include <sstream>

namespace pelrath::calls {

namespace {

std::vector<std::string> linesOf(const Act& act) {
    std::vector<std::string> lines;
    const std::string lineBreak = "\\r\\n";
    for (const std::string& summary : act.summaries) {
        std::size_t from = 0;
        for (std::size_t at = 0; (at = summary.find(lineBreak, from)) != std::string::npos;
             from = at + lineBreak.size()) {
            lines.push_back(summary.substr(from, at - from));
        }
        lines.push_back(summary.substr(from));
    }
    return lines;
}

} // namespace

std::vector<Act> actsOf(const std::string& output) {
    std::vector<Act> acts{{}};
    std::istringstream lines{output};
    for (std::string line; std::getline(lines, line);) {
        const std::string kind = line.substr(0, line.find(' ')), text = line.substr(line.find(' ') + 1);
        if (kind == "act") {
            acts.push_back({text, {}, {}, {}});
        } else {
            Act& act = acts.back();
            (kind == "box" ? act.boxes : kind == "summary" ? act.summaries : act.said).push_back(text);
        }
    }
    return acts;
}

const Act& actNamed(const std::vector<Act>& acts, const std::string& name) {
    static const Act none;
    for (const Act& act : acts) {
        if (act.name == name) return act;
    }
    return none;
}

int insertedLevels(const Act& insertion) {
    int levels = -1;
    for (const std::string& line : linesOf(insertion)) {
        const std::size_t digits = line.find_first_not_of("0123456789");
        if (digits == 0 || digits == std::string::npos) continue;
        for (const char* words : {" mipmap(s) inserted.", " Mipmap(s) inserted.", " mipmaps(s) inserted."}) {
            if (line.substr(digits) == words) levels = std::stoi(line);
        }
    }
    return levels;
}

int filesMissingIn(const Act& insertion) {
    const std::vector<std::string> lines = linesOf(insertion);
    return static_cast<int>(std::count_if(
        lines.begin(), lines.end(), [](const std::string& line) { return line.ends_with(" not found."); }));
}

std::string safeCopyIn(const Act& insertion) {
    const std::string words = "Safe copy done as ";
    for (const std::string& line : linesOf(insertion)) {
        if (line.starts_with(words)) return line.substr(words.size());
    }
    return {};
}

std::vector<std::string> filesWrittenIn(const Act& act) {
    std::vector<std::string> files;
    for (const std::string& line : linesOf(act)) {
        if (line.find(" not ") != std::string::npos) continue;
        for (const std::string words : {" written", " overwritten", " overwritten."}) {
            if (line.ends_with(words)) files.push_back(line.substr(0, line.size() - words.size()));
        }
    }
    return files;
}

} // namespace pelrath::calls
