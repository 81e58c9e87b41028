#include "batch/restoration.hpp"

#include "archive/dds_export.hpp"
#include "batch/level_texels.hpp"
#include "batch/opened_archive.hpp"
#include "platform/posix/files.hpp"

namespace pelrath::batch {

Plan planRestoration(const Session& session, const Session& copy, const std::vector<std::int16_t>& textures) {
    if (sameFile(session.archivePath, copy.archivePath)) {
        throw NoCopy{copy.archivePath + " is the archive itself"};
    }
    if (session.archive != copy.archive) {
        throw NoCopy{copy.archivePath + " is no copy of " + session.archivePath + ": its tables are others"};
    }
    const InputFile now = session.archiveFile.open(session.archivePath, session.archive);
    const InputFile then = copy.archiveFile.open(copy.archivePath, copy.archive);
    Plan plan;
    for (const std::int16_t index : textures) {
        const TextureRecord& texture = textureOf(session.archive, index);
        PlannedTexture planned{index, texture.name, {}};
        std::int16_t number = 0;
        for (const MipmapRecord& level : texture.mipmaps) {
            if (dataOf(now, level) != dataOf(then, level)) {
                PlannedFile file;
                file.path = copy.archivePath;
                file.level = number;
                file.bytes = static_cast<std::uint64_t>(level.dataSize);
                file.replaces = true;
                planned.files.push_back(file);
            }
            ++number;
        }
        if (!planned.files.empty()) plan.push_back(std::move(planned));
    }
    return plan;
}

Report runRestoration(Session& session, const Session& copy, const Plan& plan, const WritingTerms& terms,
                      RunWatcher& watcher) {
    const DdsExport source{copy.archive, copy.archivePath, copy.archiveFile};
    CollectedMessages messages{terms.writeReadOnly};
    const auto hold = [&source](const PlannedTexture& texture, HeldArchive& /*archive*/,
                                LevelWriter& writer) {
        for (const PlannedFile& file : texture.files) {
            writer.holdLevel(texture.texture, file.level, source.readLevelData(texture.texture, file.level));
        }
        return true;
    };
    return Writing{session, terms, messages, hold}.run(plan, watcher);
}

} // namespace pelrath::batch
