#pragma once

#include "platform/posix/working_folder.hpp"
#include "transfer/held_archive.hpp"
#include "transfer/level_source.hpp"
#include "transfer/loaded_level.hpp"

#include <cstddef>
#include <cstdint>
#include <string>

namespace pelrath {

/// Compresses a loaded picture into a DDS file with the data of a texture's levels one behind another. Blocks
/// that are what the archive has already stay as they are there. What the library reports leaves as
/// ImageLibraryError; where false is answered, the failure has been told.
class DdsBuilder {
public:
    /// Scaled levels pass through `tmp2.dds` in the program folder.
    DdsBuilder(const TransferImaging& imaging, const WorkingFolder& programFolder)
        : imaging_(imaging), programFolder_(programFolder) {}

    /// From now on files are built in the texture's own format. A texture that is neither DXT1 nor DXT5 is
    /// taken for DXT5.
    bool chooseFormat(const TextureRecord& texture);
    /// Builds the file from the bound image, with the chain that the library makes of it. It is going to be
    /// `count` levels of the chosen texture, from `first` on.
    bool buildWithLibraryChain(const std::string& path, HeldArchive& archive, std::size_t first,
                               std::size_t count);
    /// Builds the file from `image`, bound as well, as level 0 and every further one of the chosen texture
    /// scaled from it with the filter of this index. SourceTooShort where a level is longer than what its
    /// picture gives.
    bool buildScaled(const std::string& path, HeldArchive& archive, std::uint32_t image, std::int16_t filter);

private:
    bool save(const std::string& path, bool buildMipmaps, HeldArchive& archive, std::size_t first,
              std::size_t count);
    bool saveScaled(const std::string& path, HeldArchive& archive, LevelSource& source, std::size_t level,
                    std::int16_t filter);

    TransferImaging imaging_;
    const WorkingFolder& programFolder_;
};

} // namespace pelrath
