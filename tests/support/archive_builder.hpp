#pragma once

#include "archive/catalogue.hpp"
#include "support/values.hpp"

#include <map>
#include <optional>

namespace pelrath::test {

struct LevelPlan {
    std::int32_t width, height;
    std::string data;
    std::optional<std::int32_t> at = std::nullopt; ///< its place; behind what was placed before otherwise
};

struct TexturePlan {
    std::string name; ///< raw bytes, at most 32
    std::string type;
    std::vector<LevelPlan> levels;
    std::optional<std::int32_t> tableAt = std::nullopt; ///< of the descriptor, or of the 0C table
};

/// Writes archives byte by byte, from the format and not with the program's records.
class ArchiveBuilder {
public:
    ArchiveBuilder(CddsType type, std::vector<TexturePlan> plans = {})
        : textures(std::move(plans)), cdds_(type == CddsType::TypeCdds) {}

    std::vector<TexturePlan> textures;
    /// Overrides of single 32-bit values, by position, made last.
    std::map<std::int32_t, std::int32_t> patches;
    bool dataBeforeTables = false;
    /// Known after build(): where each texture's descriptor (cdds) or table (0C) and each level's data lie.
    std::vector<std::int32_t> tableAt;
    std::vector<std::vector<std::int32_t>> dataAt;

    [[nodiscard]] std::int32_t entryAt(std::size_t i) const {
        return static_cast<std::int32_t>(cdds_ ? 32 + 64 * i : 24 + 68 * i);
    }

    std::string build() {
        bytes_.assign(static_cast<std::size_t>(entryAt(textures.size())), '\0');
        const std::string count = " d" + std::to_string(textures.size());
        put(0, bytesOf(cdds_ ? "63646473 d-1" + count + " d3 d4 d5 d6 d7" : "d12" + count + " d1 d-2 d3 d4"));
        tableAt.clear();
        if (dataBeforeTables) placeData();
        for (std::size_t i = 0; i < textures.size(); ++i) {
            placeTables(i);
        }
        if (!dataBeforeTables) placeData();
        for (std::size_t i = 0; i < textures.size(); ++i) {
            linkLevels(i);
        }
        for (const auto& [at, value] : patches) {
            put(at, little(value, 4));
        }
        return bytes_;
    }

private:
    [[nodiscard]] std::int32_t end() const { return static_cast<std::int32_t>(bytes_.size()); }

    void put(std::int32_t at, const std::string& raw) {
        const auto from = static_cast<std::size_t>(at);
        if (bytes_.size() < from + raw.size()) bytes_.resize(from + raw.size(), '\0');
        bytes_.replace(from, raw.size(), raw);
    }

    void placeData() {
        dataAt.clear();
        for (const TexturePlan& texture : textures) {
            auto& places = dataAt.emplace_back();
            for (const LevelPlan& level : texture.levels) {
                places.push_back(level.at.value_or(end()));
                put(places.back(), level.data);
            }
        }
    }

    void placeTables(std::size_t i) {
        const TexturePlan& t = textures[i];
        const std::int32_t entry = entryAt(i);
        const std::int32_t at = tableAt.emplace_back(t.tableAt.value_or(end()));
        const auto levels = static_cast<std::int32_t>(t.levels.size());
        const std::string sides = t.levels.empty()
                                      ? std::string(8, '\0')
                                      : little(t.levels[0].height, 4) + little(t.levels[0].width, 4);
        const std::string count = little(levels, 4);
        const std::string type = (t.type + std::string(4, '\0')).substr(0, 4);
        put(entry, t.name);
        if (cdds_) {
            put(entry + 32, little(at - (entry + 32), 4) + bytesOf("d200 d201 d202 d203 d204 d205 d206"));
            put(at, sides + type + bytesOf("d104") + count + bytesOf("d106 d107 d108 d109 d110"));
        } else {
            put(entry + 32,
                sides + type + bytesOf("d300 d301 d302 d303") + count + little(at - (entry + 64), 4));
        }
        put(firstEntry(i) + 16 * levels, "");
    }

    [[nodiscard]] std::int32_t firstEntry(std::size_t i) const { return tableAt[i] + (cdds_ ? 40 : 0); }

    void linkLevels(std::size_t i) {
        std::int32_t at = firstEntry(i);
        for (std::size_t j = 0; j < textures[i].levels.size(); ++j, at += 16) {
            const LevelPlan& level = textures[i].levels[j];
            put(at, little(dataAt[i][j] - at, 4) + little(static_cast<std::int32_t>(level.data.size()), 4));
            put(at + 8, little(level.height, 4) + little(level.width, 4));
        }
    }

    bool cdds_;
    std::string bytes_;
};

} // namespace pelrath::test
