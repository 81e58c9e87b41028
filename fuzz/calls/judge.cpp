#include "calls/judge.hpp"

#include "archive/catalogue.hpp"
#include "archive/reader.hpp"

#include <algorithm>
#include <set>

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
    if (bytes == before_.at(settingsName).bytes) return true;
    std::set<std::string> texts{undisturbed_.final.at(settingsName).bytes};
    const auto orElse = [&](const std::string& line, const std::string& other) {
        for (std::string text : std::set{texts}) {
            const std::size_t at = text.find(line);
            if (at != std::string::npos) texts.insert(text.replace(at, line.size(), other));
        }
    };
    // The folder in use is that of the last dialog that opened, and one that cannot be found is forgotten.
    orElse("=" + folder_ + "/out\n", "=" + folder_ + "/extracted\n");
    orElse("=" + folder_ + "/copies\n", "=\n");
    orElse("=" + folder_ + "/bazar\n", "=\n");
    // An archive that could not be opened is no recent one.
    orElse("[Recent]\n1=" + folder_ + "/a.cdds\n", "");
    return texts.count(bytes) != 0;
}

bool Judge::known(const std::string& name, const FileState& file) const {
    if (name == archiveName) return file.mode == before_.at(name).mode; // the rest is judged by levels
    if (name == settingsName) return settingsKnown(file.bytes);
    // What cannot have the permissions that it should have is its owner's alone.
    const auto is = [&](const FileState& other) {
        return file.bytes == other.bytes && (file.mode == other.mode || file.mode == 0600);
    };
    if (isSafeCopy(name)) return is(stateIn(undisturbed_.final, "copies/a-0.cdds"));
    if (name == "program/Pelrath.ini.bak") return is(before_.at(settingsName));
    return (before_.count(name) != 0 && is(before_.at(name))) ||
           (undisturbed_.final.count(name) != 0 && is(undisturbed_.final.at(name)));
}

bool Judge::clean(const FolderState& state) const {
    return std::all_of(state.begin(), state.end(),
                       [this](const auto& file) { return known(file.first, file.second); });
}

bool Judge::unnoticed(const Trial& trial) const {
    return trial.acts == undisturbed_.acts && trial.final == undisturbed_.final && !trial.startedAgain;
}

bool Judge::told(const Trial& trial, const std::string& upTo) const {
    for (const Act& act : trial.acts) {
        const Act& other = actNamed(undisturbed_.acts, act.name);
        const bool ofThis = upTo.empty() || act.name == upTo;
        if (act.boxes.size() > other.boxes.size()) return true;
        if (ofThis && (act.boxes != other.boxes || act.summaries != other.summaries)) return true;
        if (!upTo.empty() && act.name == upTo) return false;
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
    const bool othersMissing = filesMissingIn(actNamed(trial.acts, "insert")) == all - inserted;
    if (inserted != 0 && inserted != all && !othersMissing)
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
            if (stateIn(trial.final, name).bytes != stateIn(undisturbed_.final, name).bytes)
                faults.push_back(name + " was told to be written, and is not");
        }
        bool asWanted = done.said == act.said && done.summaries.size() == act.summaries.size();
        for (const std::string& path : filesWrittenIn(act)) {
            const std::string name = inFolder(path);
            asWanted =
                asWanted && stateIn(trial.final, name).bytes == stateIn(undisturbed_.final, name).bytes;
        }
        // Settings that cannot be written are passed over in silence.
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
