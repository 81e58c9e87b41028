#pragma once

#include "imaging/refusal.hpp"
#include "transfer/image_copy.hpp"
#include "transfer/loaded_level.hpp"

#include <cstdint>
#include <optional>

namespace pelrath {

/// The picture of which a level is a copy, scaled. For small levels of a large picture that is one of a
/// quarter of its sides, box-filtered, which every filter turns into the same level within one step, in a
/// fraction of the time.
class LevelSource {
public:
    /// `image` is bound.
    LevelSource(const TransferImaging& imaging, std::uint32_t image);

    /// For a level of these sides. What the library reports leaves as ImageLibraryError.
    [[nodiscard]] std::uint32_t imageFor(std::int32_t width, std::int32_t height);

private:
    [[nodiscard]] bool quarterServes(std::int32_t width, std::int32_t height) const;

    TransferImaging imaging_;
    std::uint32_t image_;
    Sides sides_;
    std::optional<ImageCopy> quarter_;
};

} // namespace pelrath
