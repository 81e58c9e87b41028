#include "batch/insertion_plan.hpp"

#include "batch/collected_messages.hpp"
#include "batch/file_names.hpp"
#include "batch/opened_archive.hpp"
#include "batch/source_look.hpp"
#include "platform/posix/files.hpp"
#include "platform/runtime_error.hpp"

#include <algorithm>
#include <map>
#include <set>

namespace pelrath::batch {

namespace {

class InsertionPlanning {
public:
    InsertionPlanning(const Session& session, const InsertionWish& wish)
        : session_(session), wish_(wish), names_(session.archive) {}

    void add(const std::string& fileOrFolder) try {
        if (!folderExists(fileOrFolder)) return addFile(fileOrFolder, Fate::Refused);
        for (const std::string& path : imageFilesIn(fileOrFolder)) {
            if (isMeant(path)) addFile(path, Fate::LeftOut);
        }
    } catch (const RuntimeError& error) {
        strangers_.files.push_back(refusedFile(asOneLine(error.description()), fileOrFolder));
    }

    Plan take() {
        Plan plan;
        for (auto& [index, texture] : textures_) {
            settle(texture);
            plan.push_back(std::move(texture));
        }
        if (!strangers_.files.empty()) plan.push_back(std::move(strangers_));
        return plan;
    }

private:
    [[nodiscard]] bool isMeant(const std::string& path) const {
        return wish_.files == FilesOf::AnyKind ||
               (fileExtension(path) == "dds") == (wish_.files == FilesOf::Dds);
    }

    /// `stranger`: what becomes of a file that is of no texture.
    void addFile(const std::string& path, Fate stranger) {
        if (!seen_.insert(path).second) return;
        const std::vector<FilePlace>& places = names_.placesOf(std::string{fileName(path)});
        if (places.size() == 1) {
            addOf(places.front(), path);
        } else if (places.empty()) {
            const bool missing = stranger == Fate::Refused && !isNameTaken(path);
            PlannedFile file = refusedFile(
                missing ? "it is not there" : "no texture of the archive has a file of this name", path);
            file.fate = stranger;
            strangers_.files.push_back(file);
        } else {
            strangers_.files.push_back(refusedFile("several levels have a file of this name", path));
        }
    }

    void addOf(const FilePlace& place, const std::string& path) {
        const TextureRecord& record = textureOf(session_.archive, place.texture);
        PlannedTexture& texture = textures_[place.texture];
        texture.texture = place.texture;
        texture.name = record.name;
        if (!wish_.create || place.level == 0) {
            texture.files.push_back(lookAtSource(path, record, place, wish_.create));
            return;
        }
        PlannedFile file = refusedFile("its level is made of level 0's file", path);
        file.fate = Fate::LeftOut;
        file.level = place.level;
        texture.files.push_back(file);
    }

    void settle(PlannedTexture& texture) const {
        std::ranges::stable_sort(texture.files, {}, &PlannedFile::level);
        const bool anyRefused = std::ranges::any_of(
            texture.files, [](const PlannedFile& file) { return file.fate == Fate::Refused; });
        const auto planned = std::ranges::count(texture.files, Fate::Planned, &PlannedFile::fate);
        if (anyRefused) {
            refuseAll(texture, "another file of the texture cannot be inserted");
        } else if (planned == 0 && wish_.create) {
            texture.files.push_back(refusedFile("there is no file of level 0, of which all are made"));
        } else if (sharesLevels(texture)) {
            refuseAll(texture, "two files are of the same level; please leave only the one that is meant");
        }
    }

    static bool sharesLevels(const PlannedTexture& texture) {
        std::set<std::int16_t> levels;
        std::size_t planned = 0;
        for (const PlannedFile& file : texture.files) {
            if (file.fate != Fate::Planned) continue;
            ++planned;
            levels.insert(file.level);
        }
        return levels.size() < planned || (planned > 1 && levels.contains(wholeChain));
    }

    const Session& session_;
    const InsertionWish& wish_;
    FileNames names_;
    std::set<std::string> seen_;
    std::map<std::int16_t, PlannedTexture> textures_;
    PlannedTexture strangers_;
};

} // namespace

Plan planInsertion(const Session& session, const std::vector<std::string>& filesAndFolders,
                   const InsertionWish& wish) {
    InsertionPlanning planning{session, wish};
    for (const std::string& path : filesAndFolders) {
        planning.add(path);
    }
    return planning.take();
}

} // namespace pelrath::batch
