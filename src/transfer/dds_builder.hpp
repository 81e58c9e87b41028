#pragma once

#include "archive/catalogue.hpp"
#include "platform/working_folder.hpp"
#include "transfer/level_source.hpp"
#include "transfer/texture_extraction.hpp"

#include <cstdint>
#include <span>
#include <string>

namespace pelrath {

/// Compresses a loaded picture into a DDS file with the data of a texture's levels one behind another. What
/// the library reports leaves as ImageLibraryError; where false is answered, the failure has been told.
class DdsBuilder {
public:
    /// Scaled levels pass through `tmp2.dds` in the program folder.
    DdsBuilder(const TransferImaging& imaging, const WorkingFolder& programFolder)
        : imaging_(imaging), programFolder_(programFolder) {}

    /// Builds the file from the bound image, with the chain that the library makes of it.
    bool buildWithLibraryChain(const std::string& path);
    /// Builds the file from `image`, bound as well, as level 0 and every further one of `levels` scaled from
    /// it with the filter of this index. SourceTooShort where a level is longer than what its picture gives.
    bool buildScaled(const std::string& path, std::uint32_t image, std::span<const MipmapRecord> levels,
                     std::int16_t filter);

private:
    bool save(const std::string& path, bool buildMipmaps);
    bool saveScaled(const std::string& path, LevelSource& source, const MipmapRecord& level,
                    std::int16_t filter);

    TransferImaging imaging_;
    const WorkingFolder& programFolder_;
};

} // namespace pelrath
