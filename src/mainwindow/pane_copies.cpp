#include "mainwindow/pane_copies.hpp"

#include "archive/listing_cells.hpp"
#include "platform/text.hpp"

#include <algorithm>
#include <string_view>

namespace pelrath {

namespace {

constexpr std::array entries{
    PaneCopyEntry{PaneCopy::Lines, "&Copy Lines", "Ctrl+C"},
    PaneCopyEntry{PaneCopy::Names, "Copy &Name", "Ctrl+Shift+N"},
    PaneCopyEntry{PaneCopy::Offsets, "Copy &Offset in Hex", "Ctrl+Shift+H"},
};

constexpr char lineEnd = '\n';

void appendRow(std::string& text, const std::vector<std::string>& cells) {
    const char* gap = "";
    for (const std::string& cell : cells) {
        text.append(gap).append(cell);
        gap = "\t";
    }
    text += lineEnd;
}

template <class Act>
void eachChosen(const ListBox& list, const Act& act) {
    for (const ListBox::Run& run : list.selectedRuns()) {
        for (int row = run.first; row <= run.last; ++row) {
            act(list.line(row));
        }
    }
}

} // namespace

std::span<const PaneCopyEntry> paneCopyEntries() { return entries; }

std::string PaneCopies::text(Pane pane, PaneCopy copy) const {
    if (!has(pane, copy)) return {};
    std::string text = copy == PaneCopy::Lines   ? lines(pane)
                       : copy == PaneCopy::Names ? names(pane)
                                                 : offsets(pane);
    if (!text.empty()) text.pop_back();
    return text;
}

const std::string& PaneCopies::titleOf(Pane pane) const {
    return (pane == HeaderPane ? c_.Text9 : c_.Text2.at(pane)).text();
}

std::string PaneCopies::lines(Pane pane) const {
    const std::string& title = titleOf(pane);
    std::string text;
    appendRow(text, listing::titleCells(title));
    eachChosen(c_.Output.at(pane),
               [&](std::string_view line) { appendRow(text, listing::lineCells(title, line)); });
    return text;
}

std::string PaneCopies::names(Pane pane) const {
    std::string text;
    const std::vector<ListBox::Run>& runs = c_.Output.at(pane).selectedRuns();
    int first = 0; // of the texture's rows
    for (const TextureRecord& texture : session_.archive.textures) {
        const int end = first + (pane == TexturePane ? 1 : texture.mipmapCount);
        const bool chosen = std::any_of(runs.begin(), runs.end(), [&](const ListBox::Run& run) {
            return run.first < end && run.last >= first;
        });
        if (chosen) text.append(visibleText(texture.name)) += lineEnd;
        first = end;
    }
    return text;
}

// What a line leads to stands in its last hexadecimal column.
std::string PaneCopies::offsets(Pane pane) const {
    const std::string& title = titleOf(pane);
    const std::vector<std::string> titles = listing::titleCells(title);
    const auto last = std::find_if(titles.rbegin(), titles.rend(),
                                   [](const std::string& cell) { return cell.ends_with("Hex"); });
    if (last == titles.rend()) return {};
    const auto column = static_cast<std::size_t>(titles.rend() - last) - 1;
    std::string text;
    eachChosen(c_.Output.at(pane), [&](std::string_view line) {
        text.append(listing::lineCells(title, line).at(column)) += lineEnd;
    });
    return text;
}

} // namespace pelrath
