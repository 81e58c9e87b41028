#include "editing/insertion_memory.hpp"

#include "platform/posix/file_identity.hpp"

#include <algorithm>

namespace pelrath::editing {

namespace {

TransferChoices asExtracted(const ExtractedFile& file) {
    TransferChoices choices;
    choices.fileType = file.kind == ImageFileKind::Dds ? DdsFileType : NativeFileType;
    choices.operation = file.level == 0 ? Create : Single;
    if (choices.operation == Single) choices.levels = {file.level};
    return choices;
}

} // namespace

void InsertionMemory::note(const Insertion& insertion, const Session& session, bool byHand) {
    if (insertion.levels > 0 && byHand)
        choices_[{session.archivePath, session.selectedTexture}] = insertion.choices;
    const auto archive = identityOf(session.archivePath);
    if (insertion.safeCopyMade && archive) safe_.emplace(archive->device, archive->inode);
}

TransferChoices InsertionMemory::choicesFor(const EditedFile& file, const Session& session) const {
    const auto last = choices_.find({file.archivePath, file.texture});
    if (last == choices_.end()) return asExtracted(file.file);
    const auto sources = sourcesOf(last->second, session);
    const bool takesIt = std::find(sources.begin(), sources.end(), file.file.path) != sources.end();
    return takesIt ? last->second : asExtracted(file.file);
}

bool InsertionMemory::hasSafeCopy(const std::string& archivePath) const {
    const auto archive = identityOf(archivePath);
    return archive && safe_.count({archive->device, archive->inode}) != 0;
}

} // namespace pelrath::editing
