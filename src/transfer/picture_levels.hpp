#pragma once

#include "transfer/dds_builder.hpp"
#include "transfer/image_library_use.hpp"
#include "transfer/insertion_choice.hpp"
#include "transfer/level_writer.hpp"

#include <string>

namespace pelrath {

/// A picture that becomes levels of the chosen texture. What the library reports leaves as ImageLibraryError;
/// where false is answered, the failure has been told.
class PictureLevels {
public:
    /// Loads it. The library must have been started.
    PictureLevels(const TransferImaging& imaging, const WorkingFolder& programFolder,
                  const std::string& source)
        : imaging_(imaging), builder_(imaging, programFolder),
          image_(imaging.facade, imaging.images, source) {}

    /// False when loading failed.
    [[nodiscard]] explicit operator bool() const { return static_cast<bool>(image_); }
    /// Its sides; it must be bound.
    [[nodiscard]] Sides sides() const { return imaging_.facade.boundSides(); }

    /// See DdsBuilder.
    [[nodiscard]] bool chooseFormat(const TextureRecord& texture) { return builder_.chooseFormat(texture); }
    /// Builds the levels in a file at `path`, which is the caller's to remove, and has the writer hold their
    /// data. SourceTooShort where the picture gives too little of it.
    [[nodiscard]] bool hold(const std::string& path, const LevelWish& wish, HeldArchive& archive,
                            LevelWriter& writer);
    /// Lets go of the picture.
    void remove() { image_.remove(); }

private:
    [[nodiscard]] bool build(const std::string& path, const LevelWish& wish, HeldArchive& archive);

    TransferImaging imaging_;
    DdsBuilder builder_;
    LoadedImage image_;
};

} // namespace pelrath
