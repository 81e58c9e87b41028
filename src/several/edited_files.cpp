#include "several/edited_files.hpp"

#include "batch/opened_archive.hpp"

#include <algorithm>

namespace pelrath::several {

void tellEditedFiles(editing::WatchList& files, const Session& session, const PlannedRun& run,
                     const batch::Report& report) {
    for (const batch::TextureReport& texture : report.textures) {
        for (const auto& [file, outcome, message] : texture.files) {
            if (outcome != batch::Outcome::Done) continue;
            if (run.wish.insertion) {
                files.inserted(file.path);
            } else {
                const std::int16_t level = std::max(file.level, std::int16_t{0});
                files.rewritten({{file.path, file.kind, level},
                                 session.archivePath,
                                 texture.texture,
                                 batch::textureOf(session.archive, texture.texture)});
            }
        }
    }
}

} // namespace pelrath::several
