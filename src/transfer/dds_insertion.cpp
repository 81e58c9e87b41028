#include "transfer/dds_insertion.hpp"

#include "platform/posix/files.hpp"
#include "transfer/image_file_name.hpp"
#include "transfer/insertion_choice.hpp"
#include "transfer/summary_text.hpp"

#include <algorithm>

namespace pelrath {

DdsInsertion::DdsInsertion(const Controls& controls, const Session& session, const TransferState& state,
                           ImageInsertion& images, BazarTempCopy& bazarTemp)
    : c_(controls), session_(session), state_(state), images_(images), bazarTemp_(bazarTemp) {}

void DdsInsertion::insertFromDdsFiles(InsertionRun& run) {
    const bool intoArchive = c_.chkDestination[ToArchive].checked();
    std::optional<FolderLock> folder;
    if (nothingChosen()) {
        run.say("No mipmap selected.\r\n0 mipmap(s) inserted.\r\n");
    } else if (run.begin([&] { check(run, folder); }) && intoArchive) {
        insertIntoArchive(run);
    }
    if (c_.chkDestination[ToBazarTemp].checked()) {
        run.attempt([&] { copyIntoBazarTemp(run); });
    }
}

bool DdsInsertion::nothingChosen() const {
    return state_.mipmapOperation == Single && c_.chkDestination[ToArchive].checked() &&
           markedLevels(c_.List1).empty();
}

void DdsInsertion::check(InsertionRun& run, std::optional<FolderLock>& folder) const {
    if (!c_.chkDestination[ToArchive].checked()) return;
    run.archive().requireTables();
    if (state_.mipmapOperation == Create) images_.takeFolder(folder);
}

void DdsInsertion::insertIntoArchive(InsertionRun& run) {
    const InsertionRun::WritePermission permission{run};
    if (!permission) return;
    switch (state_.mipmapOperation) {
    case Single:
    case External:
        insertLevels(run, markedLevels(c_.List1), " mipmap(s) inserted.");
        break;
    case Embedded:
        insertLevels(run, {LevelWriter::everyLevel}, " Mipmap(s) inserted.");
        break;
    case Create:
        images_.insertImage(ImageFileKind::Dds, run);
        break;
    }
}

void DdsInsertion::insertLevels(InsertionRun& run, const std::vector<std::int16_t>& levels,
                                const char* countWords) {
    LevelWriter writer{run.archive()};
    std::vector<Source> sources;
    run.attempt([&] {
        for (const std::int16_t level : levels) {
            sources.push_back(hold(writer, level));
        }
        const auto tooShort = [](const Source& source) { return source.tooShort; };
        if (writer.held() > 0 && std::none_of(sources.begin(), sources.end(), tooShort)) {
            writer.writeHeldLevels();
        }
    });
    std::string lines;
    for (const Source& source : sources) {
        if (writer.written() >= source.levels) lines += source.line;
    }
    const bool noChain = state_.mipmapOperation == Embedded && !sources.empty() && !sources.front().found;
    if (!noChain) lines += std::to_string(writer.written()) + countWords + lineBreak;
    run.say(lines);
}

bool DdsInsertion::checkSourceFile(const std::string& path, std::string& summary) {
    const bool found = fileExists(path);
    summary += found ? " inserted." : " not found.";
    summary += lineBreak;
    return found;
}

DdsInsertion::Source DdsInsertion::hold(LevelWriter& writer, std::int16_t level) const {
    const bool chain = level == LevelWriter::everyLevel;
    const std::string path =
        buildImageFileName(session_, chain ? std::int16_t{0} : level, ImageFileKind::Dds);
    Source source{path};
    source.found = checkSourceFile(path, source.line);
    if (!source.found) return source;
    try {
        writer.readMipmapLevels(path, session_.selectedTexture, chain, level);
        source.levels = writer.held();
    } catch (const SourceTooShort&) {
        source.tooShort = true;
        source.line = path + " is too short." + lineBreak;
    }
    return source;
}

void DdsInsertion::copyIntoBazarTemp(InsertionRun& run) {
    const std::string path = buildImageFileName(session_, 0, ImageFileKind::Dds);
    if (run.summary().empty()) run.say(path + lineBreak);
    if (!fileExists(path)) return;
    std::string ofCopy;
    if (!bazarTemp_.StoreCopyInBazarTemp(session_.selectedTexture, path, ofCopy)) return;
    if (!ofCopy.empty() && !run.summary().ends_with(lineBreak)) run.say(lineBreak);
    run.say(ofCopy);
}

} // namespace pelrath
