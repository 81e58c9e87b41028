#include "transfer/held_archive.hpp"

#include "platform/posix/file_patch.hpp"
#include "platform/posix/full_path.hpp"
#include "platform/runtime_error.hpp"
#include "platform/text.hpp"
#include "transfer/level_bytes.hpp"

#include <algorithm>
#include <utility>

namespace pelrath {

HeldArchive::~HeldArchive() {
    if (file_) releaseLock(file_->handle());
}

std::shared_ptr<const InputFile> HeldArchive::file() {
    if (!file_) {
        file_ = std::make_shared<const InputFile>(
            session_.archiveFile.open(session_.archivePath, session_.archive, LockKind::Exclusive));
    }
    return file_;
}

const ArchiveContents& HeldArchive::requireTables() {
    const ArchiveFile& known = session_.archiveFile;
    const auto file =
        file_ ? file_ : std::make_shared<const InputFile>(known.openUnread(session_.archivePath));
    if (const std::string reason = whyNotWritable(*file); !reason.empty()) {
        throw ArchiveRefused{static_cast<int>(ErrorNumber::PermissionDenied), "requireTables", reason};
    }
    const ArchiveContents& tables = known.requireTables(*file, session_.archive);
    file_ = file;
    return tables;
}

void HeldArchive::noteMode(FileMode before) {
    record_.mode = before;
    modeNoted_ = true;
    note();
}

void HeldArchive::note() {
    if (!journal_) {
        record_.archivePath = pathFromRoot(session_.archivePath); // it may be read from another folder
        record_.textureName = session_.chosenTexture().name;
        record_.archive = file()->identity(); // for the journal's name
        record_.tables = session_.archiveFile.checksumOf(session_.archive);
        journal_.emplace(session_.programFolder.path(), record_, session_.otherProgramFolder);
    }
    record_.archive = file()->identity();
    journal_->note(record_);
}

void HeldArchive::run(std::uint64_t bytes, const std::function<void()>& work) {
    if (longWork_ == nullptr) return work();
    longWork_->run(bytes, work);
}

void HeldArchive::overwriteLevels(const std::vector<LevelBytes>& levels) {
    std::uint64_t bytes = 0;
    for (const LevelBytes& level : levels) {
        bytes += level.data.size();
    }
    run(bytes, [&] { overwriteAll(levels); });
    written_ += levels.size();
}

void HeldArchive::overwriteAll(const std::vector<LevelBytes>& levels) {
    record_.levels = record_.old = levels;
    for (LevelBytes& level : record_.old) {
        file()->readAt(static_cast<std::uint64_t>(level.dataOffset), level.data);
    }
    if (!modeNoted_) record_.mode = fileMode(*file());
    std::size_t begun = 0;
    try {
        note();
        for (const LevelBytes& level : levels) {
            session_.archiveFile.requireInPlace(*file());
            ++begun;
            overwriteOne(level);
        }
        flushOverwritten(*file());
    } catch (...) {
        putBack(std::span{record_.old}.first(begun));
        try {
            forgetLevels();
        } catch (const RuntimeError&) { // what failed first is what is told; finish() tries again
        }
        throw;
    }
}

void HeldArchive::overwriteOne(const LevelBytes& level) {
    try {
        writeArchiveBytes(*file(), level.dataOffset + 1, level.data);
    } catch (...) {
        session_.archiveFile.bringUpToDate(*file());
        throw;
    }
    session_.archiveFile.bringUpToDate(*file());
}

// Levels may share bytes: each gets back what it had before the first one was written.
void HeldArchive::putBack(std::span<const LevelBytes> old) {
    torn_ = true; // until all is done, whatever may end it
    std::optional<RuntimeError> failure;
    for (const LevelBytes& level : old) {
        try {
            putBackOne(level);
        } catch (const RuntimeError& error) {
            failure = error;
        } catch (const std::bad_alloc&) {
            failure = makeError(ErrorNumber::OutOfMemory, "putBack");
        }
    }
    try {
        flushOverwritten(*file());
    } catch (const RuntimeError& error) {
        if (!failure) failure = error;
    }
    torn_ = failure.has_value();
    if (!torn_) return;
    throw RuntimeError{failure->number(), "putBack",
                       failure->description() + ". Neither could the old data be put back: the texture \"" +
                           visibleText(record_.textureName) +
                           "\" is damaged until the insertion can be completed. The program tries to when it "
                           "is started again"};
}

// No more than what differs: where the write was refused, one of the rest would be as well.
void HeldArchive::putBackOne(const LevelBytes& old) {
    std::vector<std::byte> now(old.data.size());
    file()->readAt(static_cast<std::uint64_t>(old.dataOffset), now);
    const auto [from, unused] = std::mismatch(old.data.begin(), old.data.end(), now.begin());
    if (from == old.data.end()) return;
    const auto [last, also] = std::mismatch(old.data.rbegin(), old.data.rend(), now.rbegin());
    overwriteOne({old.dataOffset + (from - old.data.begin()), {from, last.base()}});
}

void HeldArchive::forgetLevels() {
    std::vector<LevelBytes> levels = std::exchange(record_.levels, {});
    try {
        if (modeNoted_) {
            note();
        } else if (journal_) {
            journal_->remove();
        }
    } catch (...) {
        record_.levels = std::move(levels); // they are still in the journal: finish() tries again
        throw;
    }
}

void HeldArchive::finish(bool modeIsOwed) {
    if (!journal_ || torn_) return;
    try {
        if (!modeIsOwed) {
            journal_->remove();
        } else if (!record_.levels.empty()) {
            forgetLevels();
        }
    } catch (const RuntimeError& error) {
        throw RuntimeError{
            error.number(), error.source(),
            error.description() + ". The insertion has ended as its summary says, but its journal " +
                journal_->path() +
                " is still there. Please start the program again, which removes it, or remove it "
                "yourself"};
    }
}

} // namespace pelrath
