#pragma once

#include "archive/catalogue.hpp"

#include <initializer_list>
#include <map>
#include <optional>

namespace pelrath {

struct LevelPlan {
    std::int32_t width, height;
    std::string data;
    std::optional<std::int32_t> at = std::nullopt; ///< its place; behind what was placed before otherwise
    std::int32_t zeros = 0;                        ///< how many follow the data and count as its own
    [[nodiscard]] std::int32_t size() const { return static_cast<std::int32_t>(data.size()) + zeros; }
};

struct TexturePlan {
    std::string name; ///< raw bytes, at most 32
    std::string type;
    std::vector<LevelPlan> levels;
    std::optional<std::int32_t> tableAt = std::nullopt; ///< of the descriptor, or of the 0C table
};

/// Writes archives byte by byte, from the format and not with the program's records: those of the
/// demonstration, of tests and of benchmarks.
class ArchiveBuilder {
public:
    enum class Order { TablesFirst, DataFirst, InTurns }; ///< in turns: tables and data of each texture

    ArchiveBuilder(CddsType type, std::vector<TexturePlan> plans = {})
        : textures(std::move(plans)), cdds_(type == CddsType::TypeCdds) {}

    std::vector<TexturePlan> textures;
    /// Overrides of single 32-bit values, by position, made last.
    std::map<std::int32_t, std::int32_t> patches;
    Order order = Order::TablesFirst;
    /// Known after build(): where each texture's descriptor (cdds) or table (0C) and each level's data lie.
    std::vector<std::int32_t> tableAt;
    std::vector<std::vector<std::int32_t>> dataAt;

    [[nodiscard]] std::int32_t entryAt(std::size_t i) const {
        return static_cast<std::int32_t>(cdds_ ? 32 + 64 * i : 24 + 68 * i);
    }

    std::string build() {
        bytes_.assign(static_cast<std::size_t>(entryAt(textures.size())), '\0');
        const auto count = static_cast<std::int32_t>(textures.size());
        put(0, cdds_ ? "cdds" + numbers({-1, count, 3, 4, 5, 6, 7}) : numbers({12, count, 1, -2, 3, 4}));
        tableAt.clear();
        dataAt.clear();
        if (order == Order::DataFirst) forEach(&ArchiveBuilder::placeData);
        for (std::size_t i = 0; i < textures.size(); ++i) {
            placeTables(i);
            if (order == Order::InTurns) placeData(i);
        }
        if (order == Order::TablesFirst) forEach(&ArchiveBuilder::placeData);
        forEach(&ArchiveBuilder::linkLevels);
        for (const auto& [at, value] : patches) {
            put(at, numbers({value}));
        }
        return bytes_;
    }

private:
    static std::string numbers(std::initializer_list<std::int32_t> values) {
        std::string bytes;
        for (const std::int32_t value : values) {
            for (int shift = 0; shift < 32; shift += 8) {
                bytes += static_cast<char>(value >> shift);
            }
        }
        return bytes;
    }

    void forEach(void (ArchiveBuilder::*step)(std::size_t)) {
        for (std::size_t i = 0; i < textures.size(); ++i) {
            (this->*step)(i);
        }
    }

    [[nodiscard]] std::int32_t end() const { return static_cast<std::int32_t>(bytes_.size()); }

    void put(std::int32_t at, const std::string& raw) {
        reach(at + static_cast<std::int32_t>(raw.size()));
        bytes_.replace(static_cast<std::size_t>(at), raw.size(), raw);
    }

    void reach(std::int32_t to) {
        if (end() < to) bytes_.resize(static_cast<std::size_t>(to), '\0');
    }

    void placeData(std::size_t i) {
        auto& places = dataAt.emplace_back();
        for (const LevelPlan& level : textures[i].levels) {
            places.push_back(level.at.value_or(end()));
            put(places.back(), level.data);
            reach(places.back() + level.size());
        }
    }

    void placeTables(std::size_t i) {
        const TexturePlan& t = textures[i];
        const std::int32_t entry = entryAt(i);
        const std::int32_t at = tableAt.emplace_back(t.tableAt.value_or(end()));
        const auto levels = static_cast<std::int32_t>(t.levels.size());
        const std::string sides =
            t.levels.empty() ? numbers({0, 0}) : numbers({t.levels[0].height, t.levels[0].width});
        const std::string type = (t.type + std::string(4, '\0')).substr(0, 4);
        put(entry, t.name);
        if (cdds_) {
            put(entry + 32, numbers({at - (entry + 32), 200, 201, 202, 203, 204, 205, 206}));
            put(at, sides + type + numbers({104, levels, 106, 107, 108, 109, 110}));
        } else {
            put(entry + 32, sides + type + numbers({300, 301, 302, 303, levels, at - (entry + 64)}));
        }
        reach(firstEntry(i) + 16 * levels);
    }

    [[nodiscard]] std::int32_t firstEntry(std::size_t i) const { return tableAt[i] + (cdds_ ? 40 : 0); }

    void linkLevels(std::size_t i) {
        std::int32_t at = firstEntry(i);
        for (std::size_t j = 0; j < textures[i].levels.size(); ++j, at += 16) {
            const LevelPlan& level = textures[i].levels[j];
            put(at, numbers({dataAt[i][j] - at, level.size(), level.height, level.width}));
        }
    }

    bool cdds_;
    std::string bytes_;
};

} // namespace pelrath
