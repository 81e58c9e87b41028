#include "archive/reader.hpp"

#include "platform/runtime_error.hpp"
#include "support/archive_builder.hpp"
#include "support/temporary_folder.hpp"

namespace pelrath::test {
namespace {

constexpr CddsType bothLayouts[] = {CddsType::Type0C, CddsType::TypeCdds};

CddsArchive readBytes(const std::string& bytes) {
    const TemporaryFolder folder;
    const ArchiveContents contents = readArchive(InputFile{folder.write("a.cdds", bytes)});
    EXPECT_FALSE(std::holds_alternative<NotAnArchive>(contents));
    return makeCatalogue(contents);
}

std::string damageOf(const std::string& bytes) {
    try {
        (void)readBytes(bytes);
    } catch (const DamagedArchive& damage) {
        return damage.what();
    }
    return "no damage";
}

// The catalogue that is to be read of an archive as it was built.
std::vector<TextureRecord> recordsOf(const ArchiveBuilder& builder) {
    std::vector<TextureRecord> records;
    for (const TexturePlan& plan : builder.textures) {
        const auto& places = builder.dataAt[records.size()];
        TextureRecord& record = records.emplace_back(
            TextureRecord{plan.name, plan.type, static_cast<std::int32_t>(places.size()), {}});
        for (std::size_t j = 0; j < places.size(); ++j) {
            const LevelPlan& level = plan.levels[j];
            record.mipmaps.push_back({plan.type, places[j], static_cast<std::int32_t>(level.data.size()),
                                      level.width, level.height});
        }
    }
    return records;
}

TEST(Reader, GivesTheTrueCatalogueWhereverThingsLie) {
    // Whether data comes first, where a texture's table lies, and where the data of a texture's level.
    const std::tuple<const char*, bool, std::map<std::size_t, std::int32_t>,
                     std::map<std::pair<std::size_t, std::size_t>, std::int32_t>>
        cases[] = {
            {"tables first", false, {}, {}},
            {"data first", true, {}, {}},
            {"fixed places", false, {}, {{{0, 0}, 9000}, {{0, 1}, 5000}, {{2, 0}, 7000}, {{3, 0}, 8000}}},
            {"scattered backwards", false, {{0, 300000}, {2, 150000}, {3, 70001}}, {{{2, 0}, 290000}}},
            {"shared and overlapping", false, {}, {{{0, 0}, 4000}, {{0, 1}, 4000}, {{2, 0}, 4008}}},
        };
    for (const auto& [name, dataFirst, tables, levels] : cases) {
        for (const CddsType type : bothLayouts) {
            ArchiveBuilder builder{
                type,
                {{"wall.bmp", "DXT1", {{8, 4, std::string(16, 'a')}, {4, 2, std::string(8, 'b')}}},
                 {"none", "DXT5", {}},
                 {"  glass.tga", "dxt5", {{4, 4, std::string(16, 'c')}}},
                 {"empty level", "DXT1", {{1, 1, ""}}}}};
            builder.dataBeforeTables = dataFirst;
            for (const auto& [i, at] : tables) {
                builder.textures.at(i).tableAt = at;
            }
            for (const auto& [place, at] : levels) {
                builder.textures.at(place.first).levels.at(place.second).at = at;
            }
            const CddsArchive archive = readBytes(builder.build());
            EXPECT_TRUE((archive == CddsArchive{type, recordsOf(builder), 4})) << name;
        }
    }
}

// Negative offsets all the way: a table inside an earlier entry's name, data before the table.
TEST(Reader, FollowsOffsetsBackwards) {
    ArchiveBuilder builder{CddsType::Type0C,
                           {{"", "DXT1", {}}, {"back", "DXT5", {{4, 4, std::string("\x0C\0\0\0", 4), 0}}}}};
    builder.textures[1].tableAt = builder.entryAt(0) + 4;
    EXPECT_EQ(readBytes(builder.build()).textures.at(1).mipmaps.at(0), (MipmapRecord{"DXT5", 0, 4, 4, 4}));
}

TEST(Reader, SkipsZeroBytesAndKeepsEveryOther) {
    const std::string full = "12345678901234567890123456789012";
    const std::pair<std::string, std::string> cases[] = {{std::string{"ab\0cd", 5}, "abcd"},
                                                         {full, full},
                                                         {"", ""},
                                                         {"r\xE9\x80\x9D.tga", "r\u00E9\u20AC\u009D.tga"}};
    for (const CddsType type : bothLayouts) {
        for (const auto& [stored, read] : cases) {
            ArchiveBuilder builder{type, {{stored, std::string{"D\0T1", 4}, {}}}};
            EXPECT_EQ(readBytes(builder.build()).textures.at(0), (TextureRecord{read, "DT1", 0, {}}));
        }
    }
}

TEST(Reader, TakesNothingElseForAnArchive) {
    const TemporaryFolder folder;
    for (const std::string start : {"DDS ", "CDDS", "cddS"}) {
        const auto contents = readArchive(InputFile{folder.write("a", start + std::string(200, '\0'))});
        EXPECT_TRUE(std::holds_alternative<NotAnArchive>(contents)) << start;
    }
}

// Every prefix of an archive lacks at least the last byte of a level.
TEST(Reader, RefusesAnArchiveCutAnywhere) {
    for (const CddsType type : bothLayouts) {
        ArchiveBuilder builder{
            type, {{"a.bmp", "DXT1", {{8, 8, std::string(32, 'a')}, {4, 4, std::string(8, 'b')}}}}};
        const std::string whole = builder.build();
        EXPECT_EQ(damageOf(whole), "no damage");
        for (std::size_t length = 0; length < whole.size(); ++length) {
            EXPECT_NE(damageOf(whole.substr(0, length)), "no damage") << length;
        }
    }
}

TEST(Reader, RefusesDamageWithItsReason) {
    constexpr std::int32_t most = 0x7FFFFFFF;
    constexpr CddsType cdds = CddsType::TypeCdds, type0C = CddsType::Type0C;
    // One 32-bit number replaced, and words of the message; the tables of the two textures lie at 1000 and
    // 2000.
    const std::tuple<CddsType, std::int32_t, std::int32_t, const char*> cases[] = {
        {type0C, 4, -1, "header says that there are -1 textures"},
        {cdds, 8, -most - 1, "there are -2147483648 textures"},
        {cdds, 8, 32768, "there are 32768 textures"},
        {type0C, 4, most, "there are 2147483647 textures"},
        {cdds, 8, 30000, "ends inside its table of 30000 textures"},
        {cdds, 64, 100000, "\"a.bmp\"): its descriptor would lie"},
        {cdds, 128, -129, "\"b.bmp\"): its descriptor would lie"},
        {cdds, 64, most, "beyond any archive"},
        {type0C, 88, most, "table of its levels (at 88)"},
        {type0C, 88, -200, "table of its levels would lie at -112"},
        {type0C, 84, -3, "says that it has -3 levels"},
        {cdds, 1016, most, "more than 32767"},
        {cdds, 2016, 4000, "Texture 2 (\"b.bmp\"): the table"},
        {cdds, 1044, -1, "level 0 has a size of -1 bytes (at 1044)"},
        {cdds, 2044, 100000, "Texture 2 (\"b.bmp\"): the data of its level 0"},
        {type0C, 1000, -1001, "would lie at -1 to 31"},
        {type0C, 1000, most, "leads to 2147484647"},
    };
    for (const auto& [type, at, value, words] : cases) {
        ArchiveBuilder builder{type,
                               {{"a.bmp", "DXT1", {{8, 8, std::string(32, 'a')}}, 1000},
                                {"b.bmp", "DXT1", {{4, 4, std::string(8, 'b')}}, 2000}}};
        builder.patches = {{at, value}};
        EXPECT_NE(damageOf(builder.build()).find(words), std::string::npos) << words;
    }
}

TEST(Reader, CountsLevelsOverAllTextures) {
    // 40 textures that share one table of 1000 levels: more levels than can be, in a small file.
    const TexturePlan many{"m", "DXT1", std::vector<LevelPlan>(1000, {1, 1, ""}), 60000};
    ArchiveBuilder builder{CddsType::Type0C, std::vector(32, many)};
    EXPECT_EQ(readBytes(builder.build()).totalMipmapCount, 32000);
    builder.textures.assign(40, many);
    EXPECT_NE(damageOf(builder.build()).find("Texture 33"), std::string::npos);
}

} // namespace
} // namespace pelrath::test
