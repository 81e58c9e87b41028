#include "batch/restoration.hpp"

#include "archive/dds_export.hpp"
#include "batch/level_texels.hpp"
#include "batch/opened_archive.hpp"
#include "platform/posix/files.hpp"

namespace pelrath::batch {

void requireCopy(const Session& session, const Session& copy) {
    if (sameFile(session.archivePath, copy.archivePath)) {
        throw NoCopy{copy.archivePath + " is the archive itself"};
    }
    if (session.archive != copy.archive) {
        throw NoCopy{copy.archivePath + " is no copy of " + session.archivePath + ": its tables are others"};
    }
}

CopyComparison::CopyComparison(const Session& session, const Session& copy)
    : session_(session), copy_(copy), then_(copy.archiveFile.open(copy.archivePath, copy.archive)) {
    requireCopy(session, copy);
}

CopyComparison::LevelData CopyComparison::dataInCopy(std::int16_t texture) const {
    LevelData data;
    for (const MipmapRecord& level : textureOf(copy_.archive, texture).mipmaps) {
        data.push_back(dataOf(then_, level));
    }
    return data;
}

PlannedTexture CopyComparison::compare(std::int16_t texture, const LevelData& inCopy) const {
    const InputFile now = session_.archiveFile.open(session_.archivePath, session_.archive);
    const TextureRecord& record = textureOf(session_.archive, texture);
    PlannedTexture planned{texture, record.name, {}};
    std::int16_t number = 0;
    for (const MipmapRecord& level : record.mipmaps) {
        if (dataOf(now, level) != inCopy.at(static_cast<std::size_t>(number))) {
            PlannedFile file;
            file.path = copy_.archivePath;
            file.level = number;
            file.bytes = static_cast<std::uint64_t>(level.dataSize);
            file.replaces = true;
            planned.files.push_back(file);
        }
        ++number;
    }
    return planned;
}

Plan planRestoration(const Session& session, const Session& copy, const std::vector<std::int16_t>& textures) {
    const CopyComparison comparison{session, copy};
    Plan plan;
    for (const std::int16_t index : textures) {
        PlannedTexture planned = comparison.compare(index, comparison.dataInCopy(index));
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
