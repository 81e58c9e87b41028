#pragma once

#include "archive/dds_export.hpp"
#include "batch/collected_messages.hpp"
#include "batch/library_run.hpp"
#include "batch/report.hpp"
#include "session/session.hpp"

namespace pelrath::batch {

/// Extracts the textures of plans, one after another. Each file appears whole or not at all. It is not
/// flushed to the disk: what a power cut takes is in the archive still.
class Extraction {
public:
    Extraction(Session& session, bool overwrite);

    /// What has come since it was planned, be it at the last moment, is kept, unless files are overwritten.
    [[nodiscard]] TextureReport extract(const PlannedTexture& texture);

private:
    void write(std::int16_t texture, FileReport& report);
    bool writeImage(std::int16_t texture, const PlannedFile& file);
    /// Refuses it where there is something that is not to be replaced.
    [[nodiscard]] bool isKept(FileReport& report) const;

    Session& session_;
    OldFile old_;
    CollectedMessages messages_;
    LibraryRun library_;
    DdsExport dds_;
};

/// Whether a plan has image files to be written, for which the image library is needed.
[[nodiscard]] bool needsLibrary(const Plan& plan);

/// Extracts a plan in this process.
[[nodiscard]] Report runExtraction(Session& session, const Plan& plan, bool overwrite, RunWatcher& watcher);

} // namespace pelrath::batch
