#pragma once

#include "archive/records.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <string>
#include <vector>

namespace pelrath::bench {

/// Where a texture's tables stand: all of them together, or each in front of its own texture's data.
enum class Tables { Together, Scattered };

/// An archive of `textures` textures with a chain of `levels` levels each, level 0 of side x side texels. The
/// levels of textures beyond the first `own` ones share one texture's data.
struct LargeArchive {
    bool cdds;
    int textures;
    int levels;
    int side = 256;
    int own = 1;
    Tables tables = Tables::Together;
    bool dxt5 = false; ///< DXT1 otherwise

    void write(const std::string& path) const {
        std::vector<char> bytes(static_cast<std::size_t>(entryAt(textures)));
        const auto put = [&bytes](std::int64_t at, const auto& value) {
            const auto end = static_cast<std::size_t>(at) + sizeof value;
            if (bytes.size() < end) bytes.resize(end);
            std::memcpy(&bytes[static_cast<std::size_t>(at)], &value, sizeof value);
        };
        put(0, cdds ? records::typeWordCdds : records::typeWord0C);
        put(cdds ? 8 : 4, std::int32_t{textures});
        std::int64_t data = cdds ? entryAt(textures) + textures * std::int64_t{tableSize()}
                                 : entryAt(textures) + textures * std::int64_t{16 * levels};
        const std::int64_t firstData = data;
        if (tables == Tables::Scattered) data = entryAt(textures);
        std::int64_t table = entryAt(textures);
        for (int i = 0; i < textures; ++i) {
            const bool sharing = i >= own && tables == Tables::Together;
            if (tables == Tables::Scattered) table = data;
            std::int64_t at = sharing ? firstData : tables == Tables::Scattered ? table + tableSize() : data;
            putTexture(put, i, table, at);
            if (!sharing) data = at;
            table += tableSize();
        }
        bytes.resize(
            std::max(bytes.size(), static_cast<std::size_t>(std::max(data, firstData + chainSize()))));
        std::ofstream out{path, std::ios::binary};
        out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }

private:
    [[nodiscard]] std::int64_t entryAt(int i) const { return cdds ? 32 + 64LL * i : 24 + 68LL * i; }
    [[nodiscard]] int tableSize() const { return (cdds ? 40 : 0) + 16 * levels; }
    [[nodiscard]] std::int32_t levelSide(int level) const { return std::max(1, side >> level); }
    [[nodiscard]] std::int32_t levelSize(int level) const {
        const std::int32_t blocks = (levelSide(level) + 3) / 4;
        return blocks * blocks * (dxt5 ? 16 : 8);
    }
    [[nodiscard]] std::int64_t chainSize() const {
        std::int64_t sum = 0;
        for (int j = 0; j < levels; ++j) {
            sum += levelSize(j);
        }
        return sum;
    }

    template <class Put>
    void putTexture(const Put& put, int i, std::int64_t table, std::int64_t& at) const {
        std::array<char, 32> name{};
        std::snprintf(name.data(), name.size(), "texture_of_aircraft_%05d.bmp", i);
        const std::int64_t entry = entryAt(i);
        put(entry, name);
        const std::int64_t sizes = cdds ? table : entry + 32;
        put(sizes, std::int32_t{side});
        put(sizes + 4, std::int32_t{side});
        put(sizes + 8, std::array{'D', 'X', 'T', dxt5 ? '5' : '1'});
        if (cdds) {
            put(entry + 32, static_cast<std::int32_t>(table - entry - 32));
            put(table + 16, std::int32_t{levels});
        } else {
            put(entry + 60, std::int32_t{levels});
            put(entry + 64, static_cast<std::int32_t>(table - entry - 64));
        }
        for (int j = 0; j < levels; ++j) {
            const std::int64_t place = table + (cdds ? 40 : 0) + 16 * j;
            put(place, records::MipmapEntry{static_cast<std::int32_t>(at - place), levelSize(j), levelSide(j),
                                            levelSide(j)});
            at += levelSize(j);
        }
    }
};

} // namespace pelrath::bench
