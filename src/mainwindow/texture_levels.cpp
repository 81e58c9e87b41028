#include "mainwindow/texture_levels.hpp"

#include "archive/image_file_kind.hpp"
#include "platform/runtime_error.hpp"

#include <algorithm>
#include <cstdlib>
#include <span>
#include <utility>

namespace pelrath {

namespace {

constexpr std::int32_t largestSide = 16384;

PixelFormat pixelFormat(BlockFormat format) {
    return format == BlockFormat::Dxt1 ? PixelFormat::Dxt1 : PixelFormat::Dxt5;
}

BlockFormat formatOf(const TextureRecord& texture) {
    const auto kind = nativeImageKind(texture);
    return kind && kind->kind == ImageFileKind::Tga ? BlockFormat::Dxt5 : BlockFormat::Dxt1;
}

} // namespace

TextureLevels::TextureLevels(const Session& session)
    : session_(session), dds_(session.archive, session.archivePath, session.archiveFile) {}

void TextureLevels::begin(std::int16_t texture) {
    texture_ = texture;
    if (const TextureRecord* begun = record(texture)) format_ = formatOf(*begun);
    now_.clear();
    differences_.clear();
    settleBefore();
}

void TextureLevels::keepBefore(std::int16_t texture) {
    candidate_.reset();
    const TextureRecord* chosen = record(texture);
    if (chosen == nullptr) return;
    Kept kept{session_.archivePath, texture, chosen->name, {}};
    try {
        for (const LevelSides& sides : showable(texture)) {
            kept.levels[sides.level] = dds_.readLevelData(texture, sides.level);
        }
        candidate_ = std::move(kept);
    } catch (const RuntimeError&) {
        return; // the insertion itself tells what is the matter
    }
}

// Where nothing was inserted, what the insertion before it changed is still the last.
void TextureLevels::settleBefore() {
    if (!isOf(candidate_)) return;
    Kept kept = *std::exchange(candidate_, std::nullopt);
    try {
        for (const auto& [level, old] : kept.levels) {
            if (blocks({level, Version::Now}) == old) continue;
            before_ = std::move(kept);
            return;
        }
    } catch (const RuntimeError&) {
        return; // shows when the level is
    }
}

bool TextureLevels::isOf(const std::optional<Kept>& kept) const {
    const TextureRecord* begun = record(texture_);
    return kept && begun != nullptr && kept->texture == texture_ && kept->name == begun->name &&
           kept->archive == session_.archivePath;
}

bool TextureLevels::hasBefore() const {
    const std::vector<LevelSides> levels = showable();
    return isOf(before_) && std::all_of(levels.begin(), levels.end(), [this](const LevelSides& sides) {
               const auto kept = before_->levels.find(sides.level);
               return kept != before_->levels.end() &&
                      kept->second.size() ==
                          static_cast<std::size_t>(dds_.level(texture_, sides.level).dataSize);
           });
}

std::vector<LevelSides> TextureLevels::showable() const { return showable(texture_); }

const TextureRecord* TextureLevels::record(std::int16_t texture) const {
    const auto& textures = session_.archive.textures;
    const auto index = static_cast<std::size_t>(texture);
    return texture < 0 || index >= textures.size() ? nullptr : &textures[index];
}

std::vector<LevelSides> TextureLevels::showable(std::int16_t texture) const {
    std::vector<LevelSides> levels;
    const TextureRecord* owner = record(texture);
    if (owner == nullptr) return levels;
    std::int16_t number = 0;
    for (const MipmapRecord& level : owner->mipmaps) {
        const bool possible =
            std::min(level.width, level.height) >= 1 && std::max(level.width, level.height) <= largestSide;
        if (possible && static_cast<std::uint64_t>(level.dataSize) >=
                            bytesPerLevel(formatOf(*owner), static_cast<std::uint32_t>(level.width),
                                          static_cast<std::uint32_t>(level.height)))
            levels.push_back({number, level.width, level.height});
        ++number;
    }
    return levels;
}

LevelSides TextureLevels::sides(std::int16_t level) const {
    const MipmapRecord& record = dds_.level(texture_, level);
    return {level, record.width, record.height};
}

const TextureLevels::Blocks& TextureLevels::blocks(const ImageKey& key) {
    if (key.version == Version::Before) return before_->levels.at(key.level);
    const auto read = now_.find(key.level);
    if (read != now_.end()) return read->second;
    return now_[key.level] = dds_.readLevelData(texture_, key.level);
}

LevelImage TextureLevels::image(const ImageKey& key) {
    const LevelSides level = sides(key.level);
    if (key.version == Version::Difference) {
        return {PixelFormat::Rgba, level.width, level.height, difference(key.level).picture.texels};
    }
    const std::uint64_t needed = bytesPerLevel(format(), static_cast<std::uint32_t>(level.width),
                                               static_cast<std::uint32_t>(level.height));
    return {pixelFormat(format()), level.width, level.height,
            std::span{blocks(key)}.first(static_cast<std::size_t>(needed))};
}

LevelPicture TextureLevels::decoded(const ImageKey& key) {
    if (key.version == Version::Difference) return difference(key.level).picture;
    const LevelImage level = image(key);
    return pictureOf(format(), level.bytes, level.width, level.height);
}

const LevelDifference& TextureLevels::difference(std::int16_t level) {
    const auto known = differences_.find(level);
    if (known != differences_.end()) return known->second;
    return differences_[level] =
               differenceOf(decoded({level, Version::Now}), decoded({level, Version::Before}));
}

std::array<std::uint8_t, 4> TextureLevels::texel(const TexelPlace& texel, Version version) {
    const LevelSides level = sides(texel.level);
    const auto valuesOf = [&](Version wanted) {
        return texelOf(format(), blocks({texel.level, wanted}), level.width, texel.x, texel.y);
    };
    if (version != Version::Difference) return valuesOf(version);
    std::array<std::uint8_t, 4> values = valuesOf(Version::Now);
    const std::array<std::uint8_t, 4> old = valuesOf(Version::Before);
    for (std::size_t i = 0; i < values.size(); ++i) {
        values[i] = static_cast<std::uint8_t>(std::abs(values[i] - old[i]));
    }
    return values;
}

} // namespace pelrath
