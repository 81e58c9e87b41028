#include "batch/source_look.hpp"

#include "batch/collected_messages.hpp"
#include "imaging/error_names.hpp"
#include "imaging/library_error.hpp"
#include "imaging/picture_sides.hpp"
#include "platform/dds_header.hpp"
#include "platform/posix/files.hpp"
#include "platform/runtime_error.hpp"

#include <algorithm>

namespace pelrath::batch {

namespace {

FileKind kindOf(ImageFileKind kind) {
    if (kind == ImageFileKind::Dds) return FileKind::Dds;
    return kind == ImageFileKind::Bmp ? FileKind::Bmp : FileKind::Tga;
}

std::string sidesText(std::int64_t width, std::int64_t height) {
    return std::to_string(width) + " x " + std::to_string(height);
}

class Look {
public:
    Look(const std::string& path, const TextureRecord& texture, const FilePlace& place, bool create)
        : texture_(texture), level_(texture.mipmaps[static_cast<std::size_t>(place.level)]), create_(create) {
        file_.path = path;
        file_.level = create ? wholeChain : place.level;
        file_.kind = place.kind;
        file_.replaces = true;
    }

    PlannedFile take() {
        const auto native = nativeImageKind(texture_);
        if (file_.kind != ImageFileKind::Dds && file_.kind != native->kind) {
            file_.refuse(texture_.fourCC + " textures take DDS files and " + std::string{native->extension} +
                         " images");
        } else if (level_.dataSize == 0) {
            file_.refuse("the level has no data in the archive");
        } else {
            readStart();
        }
        file_.bytes = bytesOfLevels();
        return file_;
    }

private:
    void readStart() try {
        const InputFile source{file_.path};
        std::vector<std::byte> start(
            static_cast<std::size_t>(std::min<std::uint64_t>(source.size(), startOfPicture)));
        source.readAt(0, start);
        const Sides sides = sidesOfPicture(kindOf(file_.kind), start);
        if (sides.width != static_cast<std::int64_t>(level_.width) ||
            sides.height != static_cast<std::int64_t>(level_.height)) {
            file_.refuse("its picture has " + sidesText(sides.width, sides.height) + " pixels, the level " +
                         sidesText(level_.width, level_.height));
        } else if (source.size() < leastBytesOfPicture(kindOf(file_.kind), start)) {
            file_.refuse("it is too short");
        } else if (file_.kind == ImageFileKind::Dds && !create_) {
            lookAtBlocks(ddsHeaderOf(start), source.size());
        }
    } catch (const ImageLibraryError& error) {
        file_.refuse("it " + loadAdvice(error.code(), "save it anew"));
    } catch (const RuntimeError& error) {
        file_.refuse(asOneLine(error.description()));
    }

    void lookAtBlocks(const DdsHeader& header, std::uint64_t size) {
        const auto native = nativeImageKind(texture_);
        const std::uint32_t wanted = native->kind == ImageFileKind::Bmp ? dxt1Code : dxt5Code;
        const std::uint32_t levels = std::max(header.mipmapCount, 1U);
        const std::size_t all = texture_.mipmaps.size();
        if (header.fourCC != wanted) {
            file_.refuse("its blocks are not " + texture_.fourCC);
        } else if (file_.level == 0 && all > 1 && levels >= all) {
            file_.level = wholeChain;
        } else if (file_.level == 0 && levels > 1) {
            file_.refuse("it has " + std::to_string(levels) + " levels, the texture " + std::to_string(all));
        }
        if (size < sizeof(DdsHeader) + bytesOfLevels()) file_.refuse("it is too short");
    }

    [[nodiscard]] std::uint64_t bytesOfLevels() const {
        if (file_.level != wholeChain) return static_cast<std::uint64_t>(level_.dataSize);
        std::uint64_t bytes = 0;
        for (const MipmapRecord& level : texture_.mipmaps) {
            bytes += static_cast<std::uint64_t>(level.dataSize);
        }
        return bytes;
    }

    PlannedFile file_;
    const TextureRecord& texture_;
    const MipmapRecord& level_;
    bool create_;
};

} // namespace

PlannedFile lookAtSource(const std::string& path, const TextureRecord& texture, const FilePlace& place,
                         bool create) {
    return Look{path, texture, place, create}.take();
}

} // namespace pelrath::batch
