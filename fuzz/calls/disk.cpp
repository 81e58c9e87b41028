#include "calls/disk.hpp"

#include <algorithm>

namespace pelrath::calls {

namespace {

constexpr std::size_t pageSize = 4096;

/// With zeros behind the file's end.
std::string pageOf(const std::string& bytes, std::size_t page) {
    const std::size_t at = page * pageSize;
    std::string found = at < bytes.size() ? bytes.substr(at, pageSize) : std::string{};
    found.resize(pageSize, '\0');
    return found;
}

// Nothing is taken away that is not there: neither a name that is to go, nor a file that is to move.
bool makesSense(const std::vector<NameChange>& changes, const std::map<std::string, FileKey>& names) {
    return std::all_of(changes.begin(), changes.end(), [&names](const NameChange& change) {
        const auto found = names.find(change.name);
        return change.after || (found != names.end() && found->second == change.before);
    });
}

void change(std::map<std::string, FileKey>& names, const std::vector<NameChange>& changes) {
    if (!makesSense(changes, names)) return;
    for (const NameChange& one : changes) {
        if (one.after) {
            names[one.name] = *one.after;
        } else {
            names.erase(one.name);
        }
    }
}

template <class History>
Question ask(const History& history, bool minor) {
    Question question{{}, minor};
    for (const auto& option : history) {
        question.since.push_back(option.step);
    }
    return question;
}

} // namespace

Disk::Disk(const Log& log) : log_(log), lastingNames_(log.start.names), names_(log.start.names) {
    for (const auto& [key, state] : log.start.files) {
        File& file = files_[key];
        file = {state.folder, {{state.bytes, 0}}, {{state.mode, 0}}, {}, {}};
        findChoices(file);
    }
    for (const Step& step : log.steps) {
        if (step.flushed) everFlushed_.insert(*step.flushed);
    }
}

void Disk::next() {
    const Step& step = log_.steps.at(done_++);
    for (const auto& [key, state] : step.files) {
        take(key, state);
    }
    if (!step.names.empty()) {
        change(names_, step.names);
        pending_.push_back({step.names, done_});
    }
    if (step.flushed) flush(*step.flushed, step.dataOnly);
}

void Disk::take(const FileKey& key, const StoredFile& state) {
    const auto [found, isNew] = files_.try_emplace(key);
    File& file = found->second;
    if (isNew) { // there with its name, or not at all; without bytes until they are flushed
        file.folder = state.folder;
        file.contents = {{std::make_shared<std::string>(), 0}};
        file.modes = {{state.mode, 0}};
    }
    if (*file.contents.back().value != *state.bytes) file.contents.push_back({state.bytes, done_});
    if (file.modes.back().value != state.mode) file.modes.push_back({state.mode, done_});
    findChoices(file);
}

void Disk::flush(const FileKey& key, bool dataOnly) {
    const auto found = files_.find(key);
    if (found == files_.end()) return;
    File& file = found->second;
    const auto settle = [](auto& history) { history = {{history.back().value, 0}}; };
    settle(file.contents);
    if (!dataOnly) settle(file.modes);
    findChoices(file);
    if (!file.folder) return;
    std::vector<PendingNames> left;
    for (PendingNames& pending : pending_) {
        const bool ours =
            std::any_of(pending.changes.begin(), pending.changes.end(), [&](const NameChange& one) {
                const auto folder = names_.find(folderOf(one.name));
                return folder != names_.end() && folder->second == key;
            });
        if (ours) {
            change(lastingNames_, pending.changes);
        } else {
            left.push_back(std::move(pending));
        }
    }
    pending_ = std::move(left);
}

void Disk::findChoices(File& file) {
    file.lengths = {{file.contents.front().value->size(), 0}};
    std::size_t longest = file.lengths.front().value;
    for (const auto& [bytes, step] : file.contents) {
        const std::size_t before = file.lengths.back().value;
        for (std::size_t page = before / pageSize + 1; page * pageSize < bytes->size(); ++page) {
            file.lengths.push_back({page * pageSize, step});
        }
        if (bytes->size() != before) file.lengths.push_back({bytes->size(), step});
        longest = std::max(longest, bytes->size());
    }
    file.pages.clear();
    if (file.contents.size() == 1) return;
    for (std::size_t page = 0; page * pageSize < longest; ++page) {
        History<Content> history;
        for (const auto& [bytes, step] : file.contents) {
            std::string found = pageOf(*bytes, page);
            if (history.empty() || *history.back().value != found)
                history.push_back({std::make_shared<std::string>(std::move(found)), step});
        }
        if (history.size() > 1) file.pages[page] = std::move(history);
    }
}

// A file that no name leads to, whatever happens, does not matter.
std::vector<FileKey> Disk::reachable() const {
    std::set<FileKey> keys;
    for (const auto& [name, key] : lastingNames_) {
        keys.insert(key);
    }
    for (const PendingNames& pending : pending_) {
        for (const NameChange& one : pending.changes) {
            if (one.after) keys.insert(*one.after);
        }
    }
    return {keys.begin(), keys.end()};
}

std::vector<Question> Disk::questions() const {
    std::vector<Question> all;
    for (const FileKey& key : reachable()) {
        const File& file = files_.at(key);
        const bool minor = !everFlushed_.contains(key);
        if (file.lengths.size() > 1) all.push_back(ask(file.lengths, minor));
        if (file.modes.size() > 1) all.push_back(ask(file.modes, minor));
        for (const auto& [page, history] : file.pages) {
            all.push_back(ask(history, minor));
        }
    }
    for (const PendingNames& pending : pending_) {
        const auto folder = names_.find(folderOf(pending.changes.front().name));
        all.push_back({{0, pending.step}, folder == names_.end() || !everFlushed_.contains(folder->second)});
    }
    return all;
}

Inventory Disk::after(const Answers& answers) const {
    auto answer = answers.begin();
    const auto chosen = [&answer](const auto& history) {
        return history.size() == 1 ? history.front().value : history.at(*answer++).value;
    };
    std::map<FileKey, StoredFile> files;
    for (const FileKey& key : reachable()) {
        const File& file = files_.at(key);
        const std::size_t length = chosen(file.lengths);
        StoredFile state{file.folder, chosen(file.modes), file.contents.front().value};
        if (file.contents.size() > 1) {
            std::string bytes = *file.contents.front().value;
            for (const auto& [page, history] : file.pages) {
                bytes.resize(std::max(bytes.size(), (page + 1) * pageSize), '\0');
                bytes.replace(page * pageSize, pageSize, *chosen(history));
            }
            bytes.resize(length, '\0');
            state.bytes = std::make_shared<std::string>(std::move(bytes));
        }
        files.emplace(key, std::move(state));
    }
    std::map<std::string, FileKey> names = lastingNames_;
    for (const PendingNames& pending : pending_) {
        if (*answer++ != 0) change(names, pending.changes);
    }
    Inventory state;
    for (const auto& [name, key] : names) { // folders come before what is in them
        const StoredFile* const folder = state.at(name.empty() ? name : folderOf(name));
        if (!name.empty() && (folder == nullptr || !folder->folder)) continue;
        state.names[name] = key;
        state.files[key] = files.at(key);
    }
    return state;
}

} // namespace pelrath::calls
