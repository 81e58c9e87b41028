#include "transfer/held_archive.hpp"

#include "platform/file_patch.hpp"

namespace pelrath {

std::shared_ptr<const InputFile> HeldArchive::file() {
    if (!file_) {
        file_ = std::make_shared<const InputFile>(
            session_.archiveFile.open(session_.archivePath, session_.archive));
    }
    return file_;
}

ArchiveContents HeldArchive::requireTables() {
    return session_.archiveFile.requireTables(*file(), session_.archive);
}

void HeldArchive::overwrite(std::uint64_t offset, Bytes bytes) {
    const InputFile& archive = *file();
    session_.archiveFile.requireInPlace(archive);
    try {
        overwriteWholly(archive, offset, bytes);
    } catch (...) {
        session_.archiveFile.bringUpToDate(archive);
        throw;
    }
    session_.archiveFile.bringUpToDate(archive);
}

} // namespace pelrath
