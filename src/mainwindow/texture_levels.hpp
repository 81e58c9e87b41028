#pragma once

#include "archive/dds_export.hpp"
#include "imaging/block_decoder.hpp"
#include "imaging/level_difference.hpp"
#include "mainwindow/viewer/device.hpp"
#include "session/session.hpp"

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace pelrath {

/// The levels of the texture that is shown, as the archive has them and as it had them before the last
/// insertion. They are read when they are first asked for. Fails as DdsExport does.
class TextureLevels {
public:
    explicit TextureLevels(const Session& session);

    /// Of this texture, as it is from now on.
    void begin(std::int16_t texture);
    /// An insertion into this texture may follow. What cannot be read is not kept.
    void keepBefore(std::int16_t texture);

    /// Those with possible sides and enough data.
    [[nodiscard]] std::vector<LevelSides> showable() const;
    [[nodiscard]] BlockFormat format() const { return format_; }
    /// An insertion has changed it.
    [[nodiscard]] bool hasBefore() const;

    /// What the viewer needs to show it; valid until another texture begins.
    [[nodiscard]] LevelImage image(const ImageKey& key);
    [[nodiscard]] LevelPicture decoded(const ImageKey& key);
    [[nodiscard]] const LevelDifference& difference(std::int16_t level);
    /// Red, green, blue and alpha, or their differences.
    [[nodiscard]] std::array<std::uint8_t, 4> texel(const TexelPlace& texel, Version version);

private:
    using Blocks = std::vector<std::byte>;
    /// A texture as it was.
    struct Kept {
        std::string archive;
        std::int16_t texture = -1;
        std::string name;
        std::map<std::int16_t, Blocks> levels;
    };

    /// Null where the archive has been replaced by one with fewer textures.
    [[nodiscard]] const TextureRecord* record(std::int16_t texture) const;
    [[nodiscard]] std::vector<LevelSides> showable(std::int16_t texture) const;
    [[nodiscard]] bool isOf(const std::optional<Kept>& kept) const;
    void settleBefore();
    [[nodiscard]] const Blocks& blocks(const ImageKey& key);
    [[nodiscard]] LevelSides sides(std::int16_t level) const;

    const Session& session_;
    DdsExport dds_;
    std::int16_t texture_ = -1;
    BlockFormat format_ = BlockFormat::Dxt1;
    std::map<std::int16_t, Blocks> now_;
    std::map<std::int16_t, LevelDifference> differences_;
    std::optional<Kept> candidate_; ///< nobody knows yet whether it was changed
    std::optional<Kept> before_;
};

} // namespace pelrath
