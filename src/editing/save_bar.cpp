#include "editing/save_bar.hpp"

#include <algorithm>

namespace pelrath::editing {

namespace {

constexpr int readingTime = 6000;      // milliseconds
constexpr int shortReadingTime = 2500; // where another file waits

} // namespace

SaveBar::SaveBar(WatchList& list, const Session& session) : list_(list), session_(session) {
    strip.setVisible(false);
    look.setCaption("Look");
    insert.setCaption("Insert");
    ignore.setCaption("Ignore");
    previous.setCaption("<");
    previous.setAccessibleName("Previous saved file");
    next.setCaption(">");
    next.setAccessibleName("Next saved file");
    farewell.setEnabled(false);
    const auto on = [this](Signal<>& event, auto reaction) {
        connections_.push_back(event.connect(reaction));
    };
    on(list_.changed, [this] { refresh(); });
    on(previous.click, [this] { step(files_.size() - 1); });
    on(next.click, [this] { step(1); });
    on(farewell.tick, [this] {
        farewell.setEnabled(false);
        refresh();
    });
    on(ignore.click, [this] {
        if (const auto file = current()) list_.ignore(file->file.path);
    });
}

std::optional<EditedFile> SaveBar::current() const {
    if (files_.empty() || farewell.enabled()) return std::nullopt;
    return files_[at_];
}

void SaveBar::refresh() {
    const std::string shown = files_.empty() ? "" : files_[at_].file.path;
    files_.clear();
    for (WatchList::SavedFile& saved : list_.saved()) {
        if (saved.file.isOf(session_)) files_.push_back(std::move(saved.file));
    }
    // Where the hand is already on a button, the file stays the same.
    const auto same = std::find_if(files_.begin(), files_.end(),
                                   [&](const EditedFile& file) { return file.file.path == shown; });
    const auto place = static_cast<std::size_t>(same - files_.begin());
    at_ = same == files_.end() ? 0 : place;
    step(0);
}

void SaveBar::step(std::size_t by) {
    if (farewell.enabled()) return;
    if (files_.empty()) return strip.setVisible(false);
    at_ = (at_ + by) % files_.size();
    const std::string others =
        files_.size() == 1 ? "" : " (and " + std::to_string(files_.size() - 1) + " more)";
    show(files_[at_].name() + " was saved" + others, true);
}

void SaveBar::tell(const std::string& words) {
    farewell.setEnabled(false);
    refresh();
    farewell.setInterval(files_.empty() ? readingTime : shortReadingTime);
    farewell.setEnabled(true);
    show(words, false);
}

void SaveBar::show(const std::string& words, bool withButtons) {
    text.setCaption(words);
    for (CommandButton* button : {&look, &insert, &ignore}) {
        button->setVisible(withButtons);
    }
    for (CommandButton* button : {&previous, &next}) {
        button->setVisible(withButtons && files_.size() > 1);
    }
    strip.setVisible(true);
}

} // namespace pelrath::editing
