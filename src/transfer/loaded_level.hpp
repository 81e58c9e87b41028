#pragma once

#include "archive/dds_export.hpp"
#include "archive/image_file_kind.hpp"
#include "imaging/image_library_facade.hpp"
#include "imaging/save_image_options.hpp"
#include "platform/message_boxes.hpp"
#include "platform/posix/working_folder.hpp"
#include "transfer/image_library_use.hpp"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace pelrath {

/// The image library as the operations on textures use it.
struct TransferImaging {
    ImageLibraryFacade& facade;
    const LibraryImages& images;
    SaveImageOptions& options;
    ImageLibraryUse& use;

    /// Has pictures saved as this type from now on. False where the library refused, which it has told.
    [[nodiscard]] bool saveAs(OutputFileType type) const;
};

/// A level of an archive on its way into an image file. What the library reports and what the system refuses
/// leaves as an exception; where false is answered, the failure has been told.
class LoadedLevel {
public:
    LoadedLevel(const TransferImaging& imaging, MessageBoxes& boxes, const DdsExport& dds)
        : imaging_(imaging), boxes_(boxes), dds_(dds) {}

    /// Loads the level, by way of `tmp1.dds` in the program folder, to be saved as `kind`, BMP or TGA. The
    /// library must have been started.
    bool load(const WorkingFolder& programFolder, std::int16_t textureIndex, std::int16_t level,
              ImageFileKind kind);
    /// Writes it, with the top row first in a TGA file, whatever stands at `path` unless that is kept, and
    /// lets go of it.
    bool save(const std::string& path, Durability durability = Durability::Flushed,
              OldFile old = OldFile::Replaced);

private:
    TransferImaging imaging_;
    MessageBoxes& boxes_;
    const DdsExport& dds_;
    std::optional<LoadedImage> image_;
};

/// Does work on the level's bytes, or on those of the chain that begins with it, as what may take long.
void runOnLevel(LongWork& longWork, const DdsExport& dds, std::int16_t textureIndex, std::int16_t level,
                const std::function<void()>& work);

} // namespace pelrath
