#include "transfer/level_source.hpp"

namespace pelrath {

LevelSource::LevelSource(const TransferImaging& imaging, std::uint32_t image)
    : imaging_(imaging), image_(image), sides_(imaging.facade.boundSides()) {}

bool LevelSource::quarterServes(std::int32_t width, std::int32_t height) const {
    constexpr std::uint64_t large = std::uint64_t{1} << 18; // less is scaled as fast as it is copied
    // From 16 of a quarter's pixels for one of the level's on, it does not show that each stands for four.
    constexpr std::int64_t least = 64;
    const auto isFar = [](std::int64_t whole, std::int64_t level) {
        return whole % 4 == 0 && level > 0 && whole / level >= least;
    };
    return sides_.pixels() >= large && isFar(sides_.width, width) && isFar(sides_.height, height);
}

std::uint32_t LevelSource::imageFor(std::int32_t width, std::int32_t height) {
    if (!quarterServes(width, height)) return image_;
    if (!quarter_) {
        constexpr std::int16_t box = 3;
        quarter_.emplace(imaging_.facade, imaging_.images, image_);
        // Where scaling fails, which it tells, this is the whole picture, and serves as well.
        (void)imaging_.facade.scaleImage(static_cast<std::int32_t>(sides_.width / 4),
                                         static_cast<std::int32_t>(sides_.height / 4), box);
        imaging_.images.check("scaleImage");
    }
    return quarter_->id();
}

} // namespace pelrath
