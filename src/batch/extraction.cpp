#include "batch/extraction.hpp"

#include "platform/posix/files.hpp"

#include <algorithm>

namespace pelrath::batch {

Extraction::Extraction(Session& session, bool overwrite)
    : session_(session), old_(overwrite ? OldFile::Replaced : OldFile::Kept), library_(messages_),
      dds_(session.archive, session.archivePath, session.archiveFile) {}

TextureReport Extraction::extract(const PlannedTexture& texture) {
    TextureReport report = untried(texture);
    for (FileReport& file : report.files) {
        if (file.outcome == Outcome::NotReached) write(texture.texture, file);
    }
    return report;
}

void Extraction::write(std::int16_t texture, FileReport& report) {
    const PlannedFile& file = report.file;
    if (isKept(report)) return;
    const bool done = messages_.attempt([&] {
        if (file.kind != ImageFileKind::Dds) return writeImage(texture, file);
        if (file.level == wholeChain) {
            dds_.writeDdsChainFile(file.path, texture, Durability::Scratch, old_);
        } else {
            dds_.writeDdsLevelFile(file.path, texture, file.level, Durability::Scratch, old_);
        }
        return true;
    });
    const std::string reason = messages_.takeFirst(); // what is there beside a success concerns nobody
    if (!done && isKept(report)) return;              // it has come meanwhile
    report.outcome = done ? Outcome::Done : Outcome::Failed;
    if (!done) report.message = reason;
}

bool Extraction::isKept(FileReport& report) const {
    if (old_ == OldFile::Replaced || !isNameTaken(report.file.path)) return false;
    report.outcome = Outcome::Refused;
    report.message = "it is there already";
    return true;
}

bool Extraction::writeImage(std::int16_t texture, const PlannedFile& file) {
    if (!library_.start()) return false;
    LoadedLevel image{library_.imaging(), messages_, dds_};
    return image.load(session_.programFolder, texture, file.level, file.kind) &&
           image.save(file.path, Durability::Scratch, old_);
}

bool needsLibrary(const Plan& plan) {
    return std::ranges::any_of(plan, [](const PlannedTexture& texture) {
        return std::ranges::any_of(texture.files, [](const PlannedFile& file) {
            return file.fate == Fate::Planned && file.kind != ImageFileKind::Dds;
        });
    });
}

Report runExtraction(Session& session, const Plan& plan, bool overwrite, RunWatcher& watcher) {
    Extraction extraction{session, overwrite};
    Report report;
    for (const PlannedTexture& texture : plan) {
        report.stopped = report.stopped || watcher.stopIsAsked();
        if (report.stopped) {
            report.textures.push_back(untried(texture));
            continue;
        }
        watcher.begins(texture.name, report.textures.size() + 1, plan.size());
        report.textures.push_back(extraction.extract(texture));
        watcher.ended(report.textures.back());
    }
    return report;
}

} // namespace pelrath::batch
