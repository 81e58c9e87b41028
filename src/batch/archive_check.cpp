#include "batch/archive_check.hpp"

#include "archive/table_places.hpp"
#include "batch/level_texels.hpp"
#include "batch/opened_archive.hpp"
#include "platform/runtime_error.hpp"
#include "platform/text.hpp"

#include <algorithm>

namespace pelrath::batch {

namespace {

bool followsFrom(const MipmapRecord& above, const MipmapRecord& level) {
    return level.width == std::max(above.width / 2, 1) && level.height == std::max(above.height / 2, 1);
}

std::string finding(const InputFile& archive, const ArchiveContents& contents, const TextureRecord& texture,
                    std::size_t index) try {
    const MipmapRecord& level = texture.mipmaps[index];
    if (level.dataSize == 0) return "it has no data";
    if (touchesTables(contents, level.dataOffset, level.dataSize)) return "its data lies over the tables";
    if (std::string reason = whyNotDecoded(texture, level); !reason.empty()) return reason;
    (void)texelsOf(texture, level, dataOf(archive, level));
    const bool halved = index == 0 || followsFrom(texture.mipmaps[index - 1], level);
    return halved ? "" : "its sides are not half of those above";
} catch (const RuntimeError& error) {
    return error.description();
}

} // namespace

std::size_t checkLevels(const Session& session, const ArchiveContents& contents, RunWatcher& watcher,
                        const Tell& tell) {
    const InputFile archive = session.archiveFile.open(session.archivePath, session.archive);
    std::size_t found = 0;
    std::size_t number = 0;
    for (const TextureRecord& texture : session.archive.textures) {
        if (watcher.stopIsAsked()) return found;
        watcher.begins(texture.name, ++number, session.archive.textures.size());
        for (std::size_t level = 0; level < texture.mipmaps.size(); ++level) {
            const std::string reason = finding(archive, contents, texture, level);
            if (reason.empty()) continue;
            ++found;
            tell(visibleText(texture.name) + ", level " + std::to_string(level) + ": " + reason);
        }
    }
    return found;
}

} // namespace pelrath::batch
