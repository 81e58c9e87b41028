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
    const int row = list.selectedRow();
    if (row < 0) return;
    {
        const ScopedFlag copying{copyingChosenName_};
        c_.incrementalSearchText.setText(list.selectedText());
    }
    // Another row of the same name leaves the text as it was, and nothing to complete.
    if (autoCompleteAllowed_ && !searchBusy_) c_.texturePane.setSelected(row, true);
}

void IncrementalSearch::complete() {
    if (searchBusy_ || !autoCompleteAllowed_) return;
    const ScopedFlag busy{searchBusy_};
    const std::string start = upperCase(c_.incrementalSearchText.text());
    ListBox& list = c_.incrementalSearchList;
    const int row = copyingChosenName_ ? list.selectedRow() : list.findPrefix(start);
    if (row < 0) return;
    list.setSelected(row, true);
    c_.incrementalSearchText.setText(list.line(row));
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
    c_.texturePane.setSelected(wanted, true);
}

} // namespace pelrath
