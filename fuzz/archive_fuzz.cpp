#include "archive/dds_export.hpp"
#include "archive/image_file_kind.hpp"
#include "archive/listing.hpp"
#include "archive/reader.hpp"
#include "platform/runtime_error.hpp"

#include <cstdlib>
#include <string>
#include <vector>

#include <sys/mman.h>
#include <unistd.h>

namespace {

using namespace pelrath;

// A file of the system that lives in memory.
class MemoryFile {
public:
    MemoryFile(const std::uint8_t* data, std::size_t size) : handle_(memfd_create("archive", MFD_CLOEXEC)) {
        if (handle_ < 0 || write(handle_, data, size) != static_cast<ssize_t>(size)) std::abort();
    }
    ~MemoryFile() { close(handle_); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;
    [[nodiscard]] std::string path() const { return "/proc/self/fd/" + std::to_string(handle_); }

private:
    int handle_;
};

template <class Tables>
void use(const Tables& tables, const ArchiveFile& file, std::size_t size) {
    const CddsArchive archive = makeCatalogue(tables);
    const DdsExport dds{archive, file.path(), file};
    std::string line;
    (void)listing::headerLine(tables.header);
    for (std::size_t i = 0; i < archive.textures.size(); ++i) {
        const auto index = static_cast<std::int16_t>(i);
        listing::textureLine(tables.textures[i], index, archive.textures[i].name, line);
        (void)nativeImageKind(archive.textures[i]);
        for (const MipmapRecord& level : archive.textures[i].mipmaps) {
            const bool inside =
                level.dataSize == 0 ||
                (level.dataOffset >= 0 && static_cast<std::size_t>(level.dataOffset) <= size &&
                 static_cast<std::size_t>(level.dataSize) <=
                     size - static_cast<std::size_t>(level.dataOffset));
            if (level.dataSize < 0 || !inside) std::abort();
        }
        if (!archive.textures[i].mipmaps.empty() && archive.textures[i].mipmaps[0].dataSize > 0)
            (void)dds.readLevelData(index, 0);
    }
    for (const PlacedMipmapEntry& mipmap : tables.mipmaps) {
        listing::mipmapLine(mipmap, 1, line);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const MemoryFile file{data, size};
    try {
        const InputFile opened{file.path()};
        const ArchiveFile known{opened};
        const ArchiveContents contents = readArchive(opened);
        if (const auto* tables = std::get_if<Tables0C>(&contents)) use(*tables, known, size);
        if (const auto* tables = std::get_if<TablesCdds>(&contents)) use(*tables, known, size);
    } catch (const DamagedArchive&) {
    }
    return 0;
}
