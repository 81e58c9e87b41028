#include "archive/archive_file.hpp"

#include "archive/journal_record.hpp"

#include <chrono>
#include <utility>

namespace pelrath {

namespace {

// Within one tick of a file system's clock, the coarsest of which ticks every two seconds, a file can change
// without a change of its times.
constexpr std::chrono::seconds clockTick{2};

std::int64_t settledChange(const FileIdentity& state) {
    const auto settled = std::chrono::system_clock::now().time_since_epoch() - clockTick;
    const std::int64_t before = std::chrono::duration_cast<std::chrono::nanoseconds>(settled).count();
    return state.statusChanged < before ? state.statusChanged : -1;
}

[[noreturn]] void refuse(ErrorNumber number, const std::string& text) {
    throw ArchiveRefused{static_cast<int>(number), "ArchiveFile", text};
}

[[noreturn]] void refuseAsGone(const std::string& path) {
    refuse(ErrorNumber::FileNotFound,
           path + " has been removed or renamed since it was read. Please put it back or choose an archive, "
                  "and read it again");
}

[[noreturn]] void refuseAsReplaced(const std::string& path) {
    refuse(ErrorNumber::PathFileAccess,
           path + " has been replaced by another file since it was read. Please read it again");
}

[[noreturn]] void refuseAsChanged(const std::string& path) {
    refuse(ErrorNumber::PathFileAccess,
           path + " has been changed by another program since it was read. Please read it again");
}

[[noreturn]] void refuseAsUsed(const std::string& path) {
    refuse(ErrorNumber::PermissionDenied,
           path + " is being used by another copy of the program. Please try again when that is done");
}

[[nodiscard]] bool is(const RuntimeError& error, ErrorNumber number) {
    return error.number() == static_cast<int>(number);
}

InputFile openAnew(const std::string& path) try {
    return InputFile{path};
} catch (const RuntimeError& error) {
    if (is(error, ErrorNumber::FileNotFound) || is(error, ErrorNumber::PathNotFound)) refuseAsGone(path);
    if (is(error, ErrorNumber::PathFileAccess)) refuseAsReplaced(path); // by what is no file
    throw;
}

// What they are not any more, damaged or cut, is no catalogue either.
ArchiveContents tablesOf(const InputFile& file) try {
    return readArchive(file);
} catch (const DamagedArchive&) {
    return NotAnArchive{};
} catch (const RuntimeError& error) {
    if (!is(error, ErrorNumber::InputPastEnd)) throw;
    return NotAnArchive{};
}

} // namespace

ArchiveFile::ArchiveFile(const InputFile& file)
    : path_(file.path()), known_(file.identity()), comparedAt_(settledChange(known_)) {}

InputFile ArchiveFile::open(const std::string& chosen, const CddsArchive& catalogue, LockKind lock) const {
    InputFile file = openLocked(chosen, lock);
    const FileIdentity now = file.identity();
    if (now.statusChanged != comparedAt_) compareTables(file, now, catalogue);
    return file;
}

InputFile ArchiveFile::openLocked(const std::string& chosen, LockKind lock) const {
    if (chosen != path_) {
        refuse(ErrorNumber::PathFileAccess, chosen + " was chosen, but is not the archive that was read" +
                                                (path_.empty() ? "" : ", which is " + path_) +
                                                ". Please choose the archive and read it again");
    }
    InputFile file = openAnew(path_);
    if (waitForLock(file.handle(), lock) == LockAnswer::Taken) refuseAsUsed(path_);
    requireSameState(file.identity());
    return file;
}

const ArchiveContents& ArchiveFile::requireTables(const InputFile& file, const CddsArchive& catalogue) const {
    requireInPlace(file);
    return compareTables(file, file.identity(), catalogue);
}

void ArchiveFile::requireInPlace(const InputFile& file) const {
    const auto found = identityOf(path_);
    if (!found && !fileExists(path_) && !folderExists(path_)) refuseAsGone(path_);
    if (!found || !found->sameFile(known_)) refuseAsReplaced(path_);
    requireSameState(file.identity());
}

void ArchiveFile::bringUpToDate(const InputFile& file) { known_.modified = file.identity().modified; }

void ArchiveFile::heedCompletion(const FileIdentity& now, std::uint32_t tables,
                                 const CddsArchive& catalogue) {
    const bool isThis = now.sameFile(known_) && now.size == known_.size;
    if (isThis && tablesChecksum(catalogue) == tables) known_.modified = now.modified;
}

std::uint32_t ArchiveFile::checksumOf(const CddsArchive& catalogue) const {
    if (!comparedTables_) return tablesChecksum(catalogue);
    if (!checksum_) checksum_ = tablesChecksum(catalogue);
    return *checksum_;
}

void ArchiveFile::requireSameState(const FileIdentity& now) const {
    if (!now.sameFile(known_)) refuseAsReplaced(path_);
    if (now.size != known_.size || now.modified != known_.modified) refuseAsChanged(path_);
}

const ArchiveContents& ArchiveFile::compareTables(const InputFile& file, const FileIdentity& now,
                                                  const CddsArchive& catalogue) const {
    ArchiveContents contents = tablesOf(file);
    if (!comparedTables_ || contents != *comparedTables_) {
        if (makeCatalogue(contents) != catalogue) refuseAsChanged(path_);
        comparedTables_ = std::make_shared<const ArchiveContents>(std::move(contents));
        checksum_.reset();
    }
    comparedAt_ = settledChange(now);
    return *comparedTables_;
}

} // namespace pelrath
