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

/// Its device, inode and time of birth, as another file can get the inode of one that is gone.
std::optional<std::tuple<std::uint64_t, std::uint64_t, std::int64_t>> fileOf(const std::string& path) {
    const auto file = identityOf(path);
    if (!file) return std::nullopt;
    return std::tuple{file->device, file->inode, file->born};
}

} // namespace

void InsertionMemory::note(const Insertion& insertion, const Session& session, bool byHand) {
    if (insertion.levels > 0 && byHand)
        choices_[{session.archivePath, session.selectedTexture}] = insertion.choices;
    const auto archive = fileOf(session.archivePath);
    if (insertion.safeCopyMade && archive) safe_.insert(*archive);
}

TransferChoices InsertionMemory::choicesFor(const EditedFile& file, const Session& session) const {
    const auto last = choices_.find({file.archivePath, file.texture});
    if (last == choices_.end()) return asExtracted(file.file);
    const auto sources = sourcesOf(last->second, session);
    const bool takesIt = std::find(sources.begin(), sources.end(), file.file.path) != sources.end();
    return takesIt ? last->second : asExtracted(file.file);
}

bool InsertionMemory::hasSafeCopy(const std::string& archivePath) const {
    const auto archive = fileOf(archivePath);
    return archive && safe_.count(*archive) != 0;
}

} // namespace pelrath::editing
