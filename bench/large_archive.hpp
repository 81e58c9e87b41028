#pragma once

#include "archive_builder.hpp"

#include <algorithm>
#include <fstream>

namespace pelrath::bench {

/// An archive of `textures` textures with a chain of `levels` levels each, level 0 of side x side texels, all
/// zeros. Where the tables stand together, the levels of textures beyond the first `own` ones share one
/// texture's data; otherwise each texture's tables stand in front of its own data.
struct LargeArchive {
    bool cdds;
    int textures;
    int levels;
    int side = 256;
    int own = 1;
    bool scattered = false;
    bool dxt5 = false; ///< DXT1 otherwise

    void write(const std::string& path) const {
        ArchiveBuilder builder{cdds ? CddsType::TypeCdds : CddsType::Type0C};
        if (scattered) builder.order = ArchiveBuilder::Order::InTurns;
        const std::int32_t firstData =
            builder.entryAt(static_cast<std::size_t>(textures)) + textures * (16 * levels + (cdds ? 40 : 0));
        for (int i = 0; i < textures; ++i) {
            TexturePlan plan{
                "texture_of_aircraft_" + std::to_string(10000 + i) + ".bmp", dxt5 ? "DXT5" : "DXT1", {}};
            std::int32_t shared = firstData;
            for (int j = 0; j < levels; ++j) {
                const std::int32_t levelSide = std::max(1, side >> j), blocks = (levelSide + 3) / 4;
                LevelPlan& level = plan.levels.emplace_back(LevelPlan{levelSide, levelSide, ""});
                level.zeros = blocks * blocks * (dxt5 ? 16 : 8);
                if (!scattered && i >= own) level.at = shared;
                shared += level.zeros;
            }
            builder.textures.push_back(std::move(plan));
        }
        std::ofstream{path, std::ios::binary} << builder.build();
    }
};

} // namespace pelrath::bench
