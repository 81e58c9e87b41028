#include "mainwindow/incremental_search.hpp"

#include "platform/scoped_flag.hpp"
#include "platform/text.hpp"

namespace pelrath {

namespace {
constexpr std::size_t toTheEnd = 999;
} // namespace

IncrementalSearch::IncrementalSearch(const Controls& controls) : c_(controls) {
    ListBox& list = c_.incrementalSearchList;
    for (Signal<>* event : {&list.click, &list.mouseDown, &list.mouseMove}) {
        connections_.push_back(event->connect([this] { copyChosenName(); }));
    }
    TextBox& box = c_.incrementalSearchText;
    connections_.push_back(box.change.connect([this] { complete(); }));
    connections_.push_back(box.keyDown.connect([this](KeyDown& key) { keyDown(key); }));
    connections_.push_back(box.keyPress.connect([this](char32_t key) { keyPress(key); }));
}

void IncrementalSearch::copyChosenName() {
    const ListBox& list = c_.incrementalSearchList;
    if (list.selectedRow() >= 0) c_.incrementalSearchText.setText(std::string{list.selectedText()});
}

void IncrementalSearch::complete() {
    if (searchBusy_ || !autoCompleteAllowed_) return;
    const ScopedFlag busy{searchBusy_};
    const std::string start = upperCase(c_.incrementalSearchText.text());
    const int row = c_.incrementalSearchList.findPrefix(start);
    if (row < 0) return;
    c_.incrementalSearchList.setSelected(row, true);
    c_.incrementalSearchText.setText(std::string{c_.incrementalSearchList.line(row)});
    c_.incrementalSearchText.setSelection(characterCount(start), toTheEnd);
    c_.texturePane.setSelected(row, true);
}

void IncrementalSearch::keyPress(char32_t key) {
    TextBox& box = c_.incrementalSearchText;
    const std::size_t caret = box.selectionStart();
    if (key != backspaceKey || caret == 0) {
        autoCompleteAllowed_ = true;
        return;
    }
    autoCompleteAllowed_ = false;
    box.setText(std::string{firstCharacters(box.text(), caret)});
    box.setSelection(caret, 0);
}

void IncrementalSearch::keyDown(KeyDown& key) {
    if (key.modified || (key.code != KeyCode::Up && key.code != KeyCode::Down)) return;
    step(key.code == KeyCode::Up ? -1 : 1);
    key.consumed = true;
}

void IncrementalSearch::step(int rows) {
    ListBox& list = c_.incrementalSearchList;
    const int wanted = list.selectedRow() + rows;
    if (wanted < 0 || wanted >= list.count()) return;
    list.setSelected(wanted, true);
    // The name copied into the box may have completed to another row of the same name; the pane's own
    // reaction then leads the list back here.
    c_.texturePane.setSelected(wanted, true);
}

} // namespace pelrath
