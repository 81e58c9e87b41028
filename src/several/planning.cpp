#include "several/planning.hpp"

#include "batch/collected_messages.hpp"
#include "batch/opened_archive.hpp"
#include "platform/posix/file_mode.hpp"
#include "platform/posix/files.hpp"
#include "platform/runtime_error.hpp"

#include <algorithm>
#include <utility>

namespace pelrath::several {

namespace {

using batch::Plan;
using batch::PlannedTexture;

std::string whyNoFolder(const std::string& folder, const char* wanted) {
    if (folder.empty()) return wanted;
    return folderExists(folder) ? "" : "There is no folder " + folder + ".";
}

std::string whyNoSafeCopy(const Wish& wish) {
    if (!wish.insertion || !wish.safeCopy) return {};
    return whyNoFolder(wish.safeCopyFolder, "Please choose a folder for the safe copy, or have none made.");
}

std::vector<std::int16_t> texturesOf(const Plan& plan) {
    std::vector<std::int16_t> textures;
    for (const PlannedTexture& texture : plan) {
        if (texture.texture >= 0) textures.push_back(texture.texture);
    }
    return textures;
}

PlannedTexture withoutFiles(const Session& session, std::int16_t index) {
    batch::PlannedFile file = batch::refusedFile("the folder has no such file of it");
    file.fate = batch::Fate::LeftOut;
    return {index, batch::textureOf(session.archive, index).name, {file}};
}

/// The folder's plan, as far as its textures are checked, with the checked ones that it has not.
Plan checkedOf(const Session& session, const Plan& folder, const std::vector<std::int16_t>& checked) {
    Plan plan;
    auto next = folder.begin(); // by texture, the files of none last
    const auto isTexture = [&] { return next != folder.end() && next->texture >= 0; };
    for (const std::int16_t index : checked) {
        while (isTexture() && next->texture < index)
            ++next;
        plan.push_back(isTexture() && next->texture == index ? *next : withoutFiles(session, index));
    }
    std::ranges::copy_if(folder, std::back_inserter(plan),
                         [](const PlannedTexture& texture) { return texture.texture < 0; });
    return plan;
}

// Who is asked before anything is written learns of it here.
void tellReadOnly(const std::string& archive, ToldLines& lines) try {
    if (isReadOnly(fileMode(InputFile{archive})))
        lines.insert(lines.begin(),
                     {archive + " is read-only: you are asked before it is written into", true});
} catch (const RuntimeError&) { // the run tells what is the matter
}

class Answering {
public:
    Answering(const Session& session, const PlanQuestion& question) : session_(session), q_(question) {}

    PlanAnswer take() {
        answer_.summary = whyNoFolder(q_.wish.folder, "Please choose a folder.");
        if (!answer_.summary.empty()) return std::move(answer_);
        q_.wish.insertion ? planFiles() : planTextures();
        tell();
        return std::move(answer_);
    }

private:
    void planTextures() { answer_.plan = planExtraction(session_, q_.checked, q_.wish.extraction); }

    void planFiles() {
        answer_.folderPlan = q_.folderPlan;
        if (!answer_.folderPlan) {
            answer_.folderPlan =
                std::make_shared<const Plan>(planInsertion(session_, {q_.wish.folder}, q_.wish.files));
        }
        if (q_.findsTextures) answer_.found = texturesOf(*answer_.folderPlan);
        answer_.plan = checkedOf(session_, *answer_.folderPlan, answer_.found ? *answer_.found : q_.checked);
    }

    void tell() {
        const bool insertion = q_.wish.insertion;
        const batch::Report report = batch::asIfDone(answer_.plan);
        answer_.lines = linesOf(report, insertion ? batch::insertedLine : batch::extractedLine);
        answer_.summary = whyNoSafeCopy(q_.wish);
        answer_.workable =
            answer_.summary.empty() && std::ranges::any_of(answer_.plan, &PlannedTexture::hasWork);
        if (insertion && answer_.workable) tellReadOnly(session_.archivePath, answer_.lines);
        if (answer_.summary.empty()) answer_.summary = summaryOf(report);
    }

    [[nodiscard]] std::string summaryOf(const batch::Report& report) const {
        const bool insertion = q_.wish.insertion;
        if (!answer_.plan.empty())
            return batch::countsOf(report, insertion ? "file(s) to be inserted" : "file(s) to be written");
        return insertion ? "The folder has no such file for this archive."
                         : "Please check the textures that are meant.";
    }

    const Session& session_;
    const PlanQuestion& q_;
    PlanAnswer answer_;
};

} // namespace

PlanAnswer answer(const Session& session, const PlanQuestion& question) try {
    return Answering{session, question}.take();
} catch (const std::exception& error) {
    PlanAnswer none;
    none.summary = batch::asOneLine(error.what()) + ".";
    return none;
}

} // namespace pelrath::several
