#include "calls/judge.hpp"

#include "archive/catalogue.hpp"
#include "archive/reader.hpp"

#include <algorithm>

namespace pelrath::calls {

namespace {

constexpr const char* archiveName = "a.cdds";
constexpr const char* settingsName = "program/Pelrath.ini";

bool isSafeCopy(const std::string& name) { return name.starts_with("copies/a-") && name.ends_with(".cdds"); }

const FileState& stateIn(const FolderState& state, const std::string& name) {
    static const FileState none;
    const auto found = state.find(name);
    return found == state.end() ? none : found->second;
}

} // namespace

Judge::Judge(std::string folder, FolderState before, Trial undisturbed, std::size_t texture)
    : folder_(std::move(folder)), before_(std::move(before)), undisturbed_(std::move(undisturbed)) {
    const std::string &old = before_.at(archiveName).bytes, &fresh = undisturbed_.final.at(archiveName).bytes;
    // Either state of the file does: the tables never change.
    const CddsArchive archive = makeCatalogue(readArchive(InputFile{folder_ + "/" + archiveName}));
    for (const MipmapRecord& level : archive.textures.at(texture).mipmaps) {
        const Level place{static_cast<std::size_t>(level.dataOffset),
                          static_cast<std::size_t>(level.dataSize)};
        if (old.compare(place.offset, place.size, fresh, place.offset, place.size) != 0)
            levels_.push_back(place);
    }
    copies_ = !safeCopyIn(actNamed(undisturbed_.acts, "insert")).empty();
}

bool Judge::settingsKnown(const std::string& bytes) const {
    std::string text = undisturbed_.final.at(settingsName).bytes;
    if (bytes == before_.at(settingsName).bytes || bytes == text) return true;
    // The folder in use is that of the last dialog that opened.
    const std::string last = "extractionfolder=" + folder_ + "/out";
    const std::size_t at = text.find(last);
    if (at == std::string::npos) return false;
    return bytes == text.replace(at, last.size(), "extractionfolder=" + folder_ + "/extracted");
}

bool Judge::known(const std::string& name, const FileState& file) const {
    if (name == archiveName) return file.mode == before_.at(name).mode; // the rest is judged by levels
    if (isSafeCopy(name)) return file == stateIn(undisturbed_.final, "copies/a-0.cdds");
    if (name == settingsName) return settingsKnown(file.bytes);
    if (name == "program/Pelrath.ini.bak") return file.bytes == before_.at(settingsName).bytes;
    return file == stateIn(before_, name) || file == stateIn(undisturbed_.final, name);
}

bool Judge::clean(const FolderState& state) const {
    return std::all_of(state.begin(), state.end(),
                       [this](const auto& file) { return known(file.first, file.second); });
}

bool Judge::unnoticed(const Trial& trial) const {
    return trial.acts == undisturbed_.acts && trial.final == undisturbed_.final && !trial.startedAgain;
}

bool Judge::told(const Trial& trial, const std::string& name) const {
    for (const Act& act : trial.acts) {
        const Act& other = actNamed(undisturbed_.acts, act.name);
        if (act.boxes.size() > other.boxes.size()) return true;
        if (act.name == name) return act.boxes != other.boxes || act.summaries != other.summaries;
    }
    return false;
}

std::string Judge::inFolder(const std::string& path) const {
    return path.starts_with(folder_ + "/") ? path.substr(folder_.size() + 1) : path;
}

void Judge::judgeFiles(const Trial& trial, Faults& faults) const {
    for (const auto& [name, file] : trial.final) {
        if (known(name, file)) continue;
        const bool wanted = before_.count(name) != 0 || undisturbed_.final.count(name) != 0;
        faults.push_back(name == archiveName ? "the archive has other permissions"
                         : wanted            ? name + " is neither the old nor the new one"
                         : isSafeCopy(name)  ? name + " is no whole copy"
                                             : name + " is left over");
    }
    for (const auto& [name, file] : before_) {
        if (trial.final.count(name) == 0) faults.push_back(name + " is lost");
    }
}

void Judge::judgeArchive(const Trial& trial, Faults& faults) const {
    const std::string &old = before_.at(archiveName).bytes, &fresh = undisturbed_.final.at(archiveName).bytes;
    std::string found = stateIn(trial.final, archiveName).bytes;
    int inserted = 0;
    for (const Level& level : levels_) {
        if (found.size() < level.offset + level.size) break;
        const bool isNew = found.compare(level.offset, level.size, fresh, level.offset, level.size) == 0;
        inserted += isNew ? 1 : 0;
        if (isNew) found.replace(level.offset, level.size, old, level.offset, level.size);
    }
    if (found != old) faults.push_back("the archive has bytes that are neither old nor new");
    const int all = static_cast<int>(levels_.size());
    if (inserted != 0 && inserted != all)
        faults.push_back(std::to_string(inserted) + " of " + std::to_string(all) + " levels are new");
    const int said = std::max(insertedLevels(actNamed(trial.acts, "insert")), 0);
    bool toldAgain = false;
    for (const Act& act : trial.start) {
        for (const std::string& box : act.boxes) {
            toldAgain = toldAgain || box.starts_with("Pelrath - Interrupted insertion");
        }
    }
    const bool completed = toldAgain && inserted == all;
    if (said != inserted && !completed)
        faults.push_back(std::to_string(said) + " levels were told to be inserted, but " +
                         std::to_string(inserted) + " were");
    judgeSafeCopy(trial, inserted, faults);
}

void Judge::judgeSafeCopy(const Trial& trial, int levelsInserted, Faults& faults) const {
    const std::string copy = inFolder(safeCopyIn(actNamed(trial.acts, "insert")));
    if (copy.empty() && copies_ && levelsInserted > 0) faults.push_back("inserted without a safe copy");
    if (!copy.empty() && trial.final.count(copy) == 0) faults.push_back(copy + " was told and is not there");
}

void Judge::judgeWords(const Trial& trial, Faults& faults) const {
    for (const Act& act : undisturbed_.acts) {
        const Act& done = actNamed(trial.acts, act.name);
        for (const std::string& path : filesWrittenIn(done)) {
            const std::string name = inFolder(path);
            if (stateIn(trial.final, name) != stateIn(undisturbed_.final, name))
                faults.push_back(name + " was told to be written, and is not");
        }
        bool asWanted = done.said == act.said && done.summaries.size() == act.summaries.size();
        for (const std::string& path : filesWrittenIn(act)) {
            const std::string name = inFolder(path);
            asWanted = asWanted && stateIn(trial.final, name) == stateIn(undisturbed_.final, name);
        }
        if (act.name == "quit")
            asWanted = stateIn(trial.final, settingsName) == stateIn(undisturbed_.final, settingsName);
        if (!asWanted && !told(trial, act.name)) faults.push_back(act.name + " failed, and nobody was told");
    }
}

std::vector<std::string> Judge::faults(const Trial& trial) const {
    Faults faults;
    if (trial.end.kind == End::Hung) return {"hangs"};
    if (trial.end.kind == End::Signalled) return {"crashes with signal " + std::to_string(trial.end.number)};
    if (!trial.end.well()) return {"ends with status " + std::to_string(trial.end.number)};
    if (actNamed(trial.acts, "done").name.empty()) return {"ends before its time"};
    judgeFiles(trial, faults);
    judgeArchive(trial, faults);
    judgeWords(trial, faults);
    return faults;
}

} // namespace pelrath::calls
