#include "archive/listing_cells.hpp"

#include "archive/listing.hpp"
#include "platform/text.hpp"

#include <algorithm>

namespace pelrath::listing {

namespace {

constexpr std::string_view name = "File Name"; // the one title of two words
constexpr std::size_t textColumns = 5;         // index, name, width, height and type; the others are numbers

// Takes the first word off a text.
std::string takeWord(std::string_view& text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    std::string word{text.substr(0, text.find(' '))};
    text.remove_prefix(word.size());
    return word;
}

std::vector<std::string> words(std::string_view text) {
    std::vector<std::string> found;
    for (text = trimBlanks(text); !text.empty(); text = trimBlanks(text)) {
        found.push_back(takeWord(text));
    }
    return found;
}

// Takes the last `count` words off a text.
std::vector<std::string> takeLast(std::string_view& text, std::size_t count) {
    std::vector<std::string> found(count);
    for (; count > 0; --count) {
        text = text.substr(0, text.find_last_not_of(' ') + 1);
        const std::size_t start = text.rfind(' ') + 1;
        found[count - 1] = text.substr(start);
        text = text.substr(0, start);
    }
    return found;
}

// Name and type may hold anything, blanks as well; wide values shift what is behind them.
std::vector<std::string> textureCells(std::string_view line, std::size_t columns) {
    std::vector<std::string> cells{takeWord(line)};
    line.remove_prefix(std::min<std::size_t>(2, line.size()));
    const std::size_t nameBytes = bytesOfCharacters(line, nameWidth);
    cells.push_back(visibleText(trimBlanks(line.substr(0, nameBytes))));
    line.remove_prefix(nameBytes);
    cells.push_back(takeWord(line));
    (void)takeWord(line); // the "x" between the sides
    cells.push_back(takeWord(line));
    const std::vector<std::string> numbers = takeLast(line, columns - textColumns);
    cells.push_back(visibleText(trimBlanks(line)));
    cells.insert(cells.end(), numbers.begin(), numbers.end());
    return cells;
}

} // namespace

std::vector<std::string> titleCells(std::string_view title) {
    std::vector<std::string> titles = words(title);
    const auto first = std::find(titles.begin(), titles.end(), "File");
    if (first != titles.end()) {
        *first = name;
        titles.erase(first + 1);
    }
    return titles;
}

std::vector<std::string> lineCells(std::string_view title, std::string_view line) {
    const bool ofTexture = title.find(name) != std::string_view::npos;
    return ofTexture ? textureCells(line, titleCells(title).size()) : words(line);
}

} // namespace pelrath::listing
