#include "editing/watch_list.hpp"

#include <algorithm>
#include <utility>

namespace pelrath::editing {

namespace {

void arm(Timer& timer, int milliseconds) {
    timer.setInterval(milliseconds);
    timer.setEnabled(true);
}

} // namespace

struct WatchList::Entry {
    EditedFile file;
    std::optional<FileIdentity> done;  ///< the state that has been looked at to the end
    std::optional<FileIdentity> seen;  ///< the last one, while it may go on changing
    std::optional<std::size_t> digest; ///< of the bytes that are known; nothing: any others are new
    std::optional<PictureState> saved;
    std::optional<FileIdentity> taken; ///< the state in which the last insertion found it
    unsigned order = 0;                ///< of being saved
    unsigned begun = 0;                ///< how often: what was asked for before does not count
    bool looking = false;              ///< elsewhere
    bool again = false;                ///< something happened meanwhile
};

WatchList::WatchList(FileWatch& watch, BackgroundWork& background)
    : watch_(watch), background_(background), self_(std::make_shared<WatchList*>(this)) {
    for (Timer* timer : {&settling, &results}) {
        timer->setEnabled(false);
    }
    connections_.push_back(settling.tick.connect([this] { look(); }));
    connections_.push_back(results.tick.connect([this] { showResults(); }));
    watch_.happened = [this] { heed(); };
}

WatchList::~WatchList() { watch_.happened = nullptr; }

WatchList::Entry* WatchList::find(const std::string& path) const {
    const auto found = std::find_if(entries_.begin(), entries_.end(),
                                    [&](const auto& entry) { return entry->file.file.path == path; });
    return found == entries_.end() ? nullptr : found->get();
}

std::vector<WatchList::SavedFile> WatchList::saved() const {
    std::vector<const Entry*> found;
    for (const auto& entry : entries_) {
        if (entry->saved) found.push_back(entry.get());
    }
    std::sort(found.begin(), found.end(),
              [](const Entry* one, const Entry* other) { return one->order < other->order; });
    std::vector<SavedFile> files;
    files.reserve(found.size());
    for (const Entry* entry : found) {
        files.push_back({entry->file, *entry->saved});
    }
    return files;
}

void WatchList::add(const EditedFile& file) {
    Entry* entry = find(file.file.path);
    if (entry == nullptr) {
        entries_.push_back(std::make_unique<Entry>());
        entry = entries_.back().get();
    }
    // What was saved of the same texture stays to be inserted.
    const bool isKnown = entry->file.archivePath == file.archivePath && entry->file.texture == file.texture;
    entry->file = file;
    if (!isKnown) know(*entry, identityOf(file.file.path));
    std::vector<std::string> paths;
    for (const auto& each : entries_) {
        paths.push_back(each->file.file.path);
    }
    watch_.follow(paths);
}

void WatchList::rewritten(const EditedFile& file) {
    Entry* entry = find(file.file.path);
    if (entry == nullptr) return;
    entry->file = file;
    know(*entry, identityOf(file.file.path));
}

void WatchList::know(Entry& entry, const std::optional<FileIdentity>& state) {
    ++entry.begun;
    entry.done = state;
    entry.seen.reset();
    entry.digest.reset();
    entry.looking = false;
    const bool shown = std::exchange(entry.saved, std::nullopt).has_value();
    run(
        entry, [file = entry.file.file] { return readPicture(file.path, file.kind); },
        [this](Entry& known, const FileLook& look) {
            // What was saved before it could be read is new, whatever it was.
            if (look.picture && look.now == known.done) known.digest = look.picture->digest;
            if (look.now != known.done) wait();
        });
    if (shown) changed.emit();
}

void WatchList::insertionBegins() {
    for (const auto& entry : entries_) {
        entry->taken = identityOf(entry->file.file.path);
    }
}

void WatchList::inserted(const std::string& path) {
    Entry* entry = find(path);
    if (entry == nullptr) return;
    if (entry->saved && entry->saved->identity == entry->taken) return ignore(path);
    know(*entry, entry->taken);
}

void WatchList::ignore(const std::string& path) {
    Entry* entry = find(path);
    if (entry == nullptr || !entry->saved) return;
    entry->digest = entry->saved->digest;
    entry->saved.reset();
    changed.emit();
}

std::optional<PictureState> WatchList::lookAgain(const std::string& path) {
    Entry* entry = find(path);
    if (entry == nullptr || !entry->saved) return std::nullopt;
    if (identityOf(path) == entry->saved->identity) return entry->saved;
    const FileLook look = readPicture(path, entry->file.file.kind);
    if (look.picture) {
        entry->done = look.now;
        entry->saved = look.picture;
        return entry->saved;
    }
    entry->saved.reset();
    entry->done.reset();
    entry->seen.reset();
    wait();
    changed.emit();
    return std::nullopt;
}

void WatchList::heed() {
    if (!entries_.empty()) wait();
}

void WatchList::wait() { arm(settling, settlingTime); }

void WatchList::look() {
    settling.setEnabled(false);
    for (const auto& entry : entries_) {
        if (entry->looking) {
            entry->again = true;
        } else {
            start(*entry);
        }
    }
}

void WatchList::run(Entry& entry, const std::function<FileLook()>& work,
                    const std::function<void(Entry&, const FileLook&)>& take) {
    auto found = std::make_shared<FileLook>();
    const auto then = [self = std::weak_ptr{self_}, path = entry.file.file.path, begun = entry.begun, found,
                       take] {
        const auto list = self.lock();
        if (!list) return;
        (*list)->results_.push_back([list = *list, path, begun, found, take] {
            Entry* asked = list->find(path);
            if (asked != nullptr && asked->begun == begun) take(*asked, *found);
        });
        arm((*list)->results, 1);
    };
    background_.run([found, work] { *found = work(); }, then);
}

void WatchList::start(Entry& entry) {
    entry.looking = true;
    const auto work = [file = entry.file.file, done = entry.done, seen = entry.seen] {
        const auto now = identityOf(file.path);
        // One that goes on changing is not read again and again.
        const bool settled = now && now != done && now == seen;
        return settled ? readPicture(file.path, file.kind) : FileLook{now, false, std::nullopt};
    };
    run(entry, work, [this](Entry& asked, const FileLook& look) { take(asked, look); });
}

void WatchList::showResults() {
    results.setEnabled(false);
    for (const auto& result : std::exchange(results_, {})) {
        result();
    }
}

void WatchList::take(Entry& entry, const FileLook& look) {
    entry.looking = false;
    if (std::exchange(entry.again, false)) wait();
    if (look.now && look.now == entry.done) {
        entry.seen.reset();
    } else if (look.wasRead && look.picture) {
        keepAsSaved(entry, *look.picture);
    } else {
        const bool settled = look.wasRead && look.now == entry.seen;
        entry.seen = look.now;
        if (settled) entry.done = look.now; // its next change is waited for
        if (look.now && !settled) wait();
        // What there was to insert is gone.
        if ((settled || !look.now) && std::exchange(entry.saved, std::nullopt)) changed.emit();
    }
}

void WatchList::keepAsSaved(Entry& entry, const PictureState& picture) {
    entry.done = picture.identity;
    entry.seen.reset();
    const bool isNew = entry.digest != picture.digest;
    if (!isNew && !entry.saved) return;
    if (isNew && !entry.saved) entry.order = ++savings_;
    entry.saved = isNew ? std::optional{picture} : std::nullopt;
    changed.emit();
}

} // namespace pelrath::editing
