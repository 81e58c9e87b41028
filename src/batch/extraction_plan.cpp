#include "batch/extraction_plan.hpp"

#include "batch/collected_messages.hpp"
#include "batch/opened_archive.hpp"
#include "platform/posix/files.hpp"
#include "platform/runtime_error.hpp"
#include "transfer/image_file_name.hpp"

#include <set>

namespace pelrath::batch {

namespace {

class ExtractionPlanning {
public:
    ExtractionPlanning(const Session& session, const ExtractionWish& wish) : session_(session), wish_(wish) {}

    PlannedTexture plan(std::int16_t index) {
        const TextureRecord& texture = textureOf(session_.archive, index);
        PlannedTexture planned{index, texture.name, {}};
        if (const std::string reason = whyNotExtracted(texture); !reason.empty()) {
            planned.files.push_back(refusedFile(reason));
        } else if (wish_.levels == Levels::Chain) {
            planned.files.push_back(chain(texture));
        } else {
            const std::size_t count = wish_.levels == Levels::All ? texture.mipmaps.size() : 1;
            for (std::size_t level = 0; level < count; ++level) {
                planned.files.push_back(file(texture, level));
            }
        }
        return planned;
    }

private:
    static std::string whyNotExtracted(const TextureRecord& texture) try {
        if (texture.mipmaps.empty()) return "it has no levels";
        (void)imageFileName(std::string{withoutExtension(texture.name)}, texture.mipmaps[0],
                            ImageFileKind::Dds);
        return whyNotSupported(texture);
    } catch (const RuntimeError& error) {
        return asOneLine(error.description());
    }

    PlannedFile chain(const TextureRecord& texture) {
        PlannedFile planned = file(texture, 0);
        planned.level = wholeChain;
        planned.bytes = 0;
        for (const MipmapRecord& level : texture.mipmaps) {
            planned.bytes += static_cast<std::uint64_t>(level.dataSize);
            if (level.dataSize == 0) planned.refuse("a level of the chain has no data");
        }
        if (wish_.images) planned.refuse("an image file holds one level, not a chain");
        return planned;
    }

    PlannedFile file(const TextureRecord& texture, std::size_t level) {
        const MipmapRecord& record = texture.mipmaps[level];
        PlannedFile planned;
        planned.level = static_cast<std::int16_t>(level);
        if (wish_.images) planned.kind = nativeImageKind(texture)->kind;
        planned.bytes = static_cast<std::uint64_t>(record.dataSize);
        const std::string base{withoutExtension(texture.name)};
        planned.path = joinPath(wish_.folder, imageFileName(base, record, planned.kind));
        if (record.dataSize == 0) planned.refuse("the level has no data");
        if (planned.fate == Fate::Planned) look(planned);
        return planned;
    }

    void look(PlannedFile& planned) {
        planned.replaces = fileExists(planned.path);
        if (!names_.insert(planned.path).second) {
            planned.refuse("another level or texture has a file of the same name");
        } else if (sameFile(planned.path, session_.archivePath)) {
            planned.refuse("it is the archive itself");
        } else if (!wish_.overwrite && isNameTaken(planned.path)) {
            planned.refuse("it is there already");
        }
    }

    const Session& session_;
    const ExtractionWish& wish_;
    std::set<std::string> names_;
};

} // namespace

Plan planExtraction(const Session& session, const std::vector<std::int16_t>& textures,
                    const ExtractionWish& wish) {
    ExtractionPlanning planning{session, wish};
    Plan plan;
    for (const std::int16_t texture : textures) {
        plan.push_back(planning.plan(texture));
    }
    return plan;
}

} // namespace pelrath::batch
