#include "batch/writing.hpp"

#include "batch/opened_archive.hpp"
#include "platform/posix/file_mode.hpp"
#include "platform/posix/files.hpp"
#include "platform/runtime_error.hpp"
#include "transfer/numbered_copy.hpp"

#include <algorithm>
#include <utility>

namespace pelrath::batch {

namespace {

/// The run is to stop.
struct StopAsked {};

/// Leaves the work that it shows where the run is to stop.
class LeavingSign : public BusySign {
public:
    LeavingSign(BusySign* shown, RunWatcher& watcher) : shown_(shown), watcher_(watcher) {}

    void show(const std::string& what, std::uint64_t done, std::uint64_t total) override {
        if (shown_ != nullptr) shown_->show(what, done, total);
        if (watcher_.stopIsAsked()) throw StopAsked{};
    }
    void clear() override {
        if (shown_ != nullptr) shown_->clear();
    }

private:
    BusySign* shown_;
    RunWatcher& watcher_;
};

} // namespace

Writing::Writing(Session& session, const WritingTerms& terms, CollectedMessages& messages, Hold hold)
    : session_(session), terms_(terms), messages_(messages), hold_(std::move(hold)), readOnly_(messages) {}

Report Writing::run(const Plan& plan, RunWatcher& watcher) {
    Report report;
    bool begun = false;
    for (const PlannedTexture& texture : plan) {
        TextureReport part = untried(texture);
        if (texture.hasWork() && report.ended.empty()) {
            report.stopped = report.stopped || watcher.stopIsAsked();
            if (!report.stopped && !begun) {
                begun = begin(report, watcher);
                // The copy may have taken long.
                report.stopped = report.stopped || (!report.safeCopy.empty() && watcher.stopIsAsked());
            }
            if (!report.stopped && begun) {
                watcher.begins(texture.name, report.textures.size() + 1, plan.size());
                part = write(texture);
            }
        }
        watcher.ended(part);
        report.textures.push_back(std::move(part));
    }
    return report;
}

bool Writing::begin(Report& report, RunWatcher& watcher) try {
    const bool done = messages_.attempt([&] {
        HeldArchive archive{session_};
        archive.requireTables();
        requireWritable(archive);
        if (terms_.safeCopyFolder.empty()) return true;
        if (!folderExists(terms_.safeCopyFolder)) {
            throw makeError(ErrorNumber::PathNotFound, "Writing", terms_.safeCopyFolder);
        }
        report.safeCopy = makeSafeCopy(*archive.file(), watcher);
        return true;
    });
    if (!done) report.ended = "nothing was written: " + messages_.takeFirst();
    return done;
} catch (const StopAsked&) {
    report.stopped = true;
    return false;
}

std::string Writing::makeSafeCopy(const InputFile& archive, RunWatcher& watcher) const {
    LeavingSign sign{terms_.busy, watcher};
    return makeNumberedCopy(archive, session_.archivePath, terms_.safeCopyFolder, &sign);
}

void Writing::requireWritable(HeldArchive& archive) const {
    if (terms_.writeReadOnly || !isReadOnly(fileMode(*archive.file()))) return;
    throw RuntimeError{static_cast<int>(ErrorNumber::PermissionDenied), "Writing",
                       session_.archivePath + " is read-only, and it was not agreed on to write into it"};
}

TextureReport Writing::write(const PlannedTexture& texture) {
    TextureReport report = untried(texture);
    const TextureChoice choice{session_, texture.texture};
    HeldArchive archive{session_};
    LevelWriter writer{archive};
    bool done = messages_.attempt([&] {
        archive.requireTables();
        return hold_(texture, archive, writer);
    });
    if (done) {
        done = messages_.attempt([&] {
            writeHeld(archive, writer);
            return true;
        });
        std::string unsaid;
        readOnly_.handleReadOnlyArchive(ReadOnlyArchive::AfterWriting, archive, unsaid);
    }
    (void)messages_.attempt([&] {
        archive.finish(readOnly_.owesMode());
        return true;
    });
    settle(report, done ? Outcome::Done : Outcome::Failed, done ? "" : messages_.takeFirst());
    report.remarks = messages_.take();
    return report;
}

void Writing::writeHeld(HeldArchive& archive, LevelWriter& writer) {
    const auto refuse = [](const char* reason) {
        throw RuntimeError{static_cast<int>(ErrorNumber::PathFileAccess), "Writing", reason};
    };
    if (writer.held() == 0) refuse("there is nothing to be written");
    requireWritable(archive);
    std::string unsaid;
    if (!readOnly_.handleReadOnlyArchive(ReadOnlyArchive::BeforeWriting, archive, unsaid))
        refuse("the archive could not be made writable");
    writer.writeHeldLevels();
}

} // namespace pelrath::batch
