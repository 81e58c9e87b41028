#include "transfer/picture_levels.hpp"

namespace pelrath {

bool PictureLevels::hold(const std::string& path, const LevelWish& wish, HeldArchive& archive,
                         LevelWriter& writer) {
    if (!build(path, wish, archive)) return false;
    writer.readMipmapLevels(path, archive.session().selectedTexture, wish.chained, wish.selectedLevel);
    return true;
}

bool PictureLevels::build(const std::string& path, const LevelWish& wish, HeldArchive& archive) {
    if (wish.chained && wish.filter != bilinearFilter) {
        return builder_.buildScaled(path, archive, image_.id(), static_cast<std::int16_t>(wish.filter));
    }
    const std::size_t all = archive.session().chosenTexture().mipmaps.size();
    return builder_.buildWithLibraryChain(path, archive, static_cast<std::size_t>(wish.firstLevel),
                                          wish.chained ? all : 1);
}

} // namespace pelrath
