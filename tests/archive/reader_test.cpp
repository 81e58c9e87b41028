#include "archive/archive_file.hpp"
#include "archive_builder.hpp"
#include "support/temporary_folder.hpp"

namespace pelrath::test {
namespace {

namespace fs = std::filesystem;

constexpr CddsType bothLayouts[] = {CddsType::Type0C, CddsType::TypeCdds};

/// Of a file that goes on with zeros up to the size, where one is given.
CddsArchive readBytes(const std::string& bytes, std::uintmax_t size = 0) {
    const TemporaryFolder folder;
    const std::string path = folder.write("a.cdds", bytes);
    if (size > 0) fs::resize_file(path, size);
    const ArchiveContents contents = readArchive(InputFile{path});
    EXPECT_FALSE(std::holds_alternative<NotAnArchive>(contents));
    return makeCatalogue(contents);
}

std::string damageOf(const std::string& bytes, std::uintmax_t size = 0) {
    try {
        (void)readBytes(bytes, size);
    } catch (const DamagedArchive& damage) {
        return damage.what();
    }
    return "no damage";
}

// The catalogue that is to be read of an archive as it was built.
decltype(CddsArchive::textures) recordsOf(const ArchiveBuilder& builder) {
    decltype(CddsArchive::textures) records;
    for (const TexturePlan& plan : builder.textures) {
        const auto& places = builder.dataAt[records.size()];
        TextureRecord& record = records.emplace_back(
            TextureRecord{plan.name, plan.type, static_cast<std::int32_t>(places.size()), {}});
        records::FourCC type{};
        plan.type.copy(type.data(), type.size());
        for (std::size_t j = 0; j < places.size(); ++j) {
            const LevelPlan& level = plan.levels[j];
            record.mipmaps.push_back(
                {type, places[j], static_cast<std::int32_t>(level.data.size()), level.width, level.height});
        }
    }
    return records;
}

TEST(Reader, GivesTheTrueCatalogueWhereverThingsLie) {
    using Arrange = std::function<void(ArchiveBuilder&)>;
    const auto at = [](ArchiveBuilder& builder, std::size_t texture, std::size_t level, std::int32_t place) {
        builder.textures.at(texture).levels.at(level).at = place;
    };
    const std::pair<const char*, Arrange> cases[] = {
        {"tables first", [](ArchiveBuilder&) {}},
        {"data with gaps, shared and overlapping",
         [&](ArchiveBuilder& b) {
             at(b, 0, 0, 9000), at(b, 0, 1, 9000), at(b, 2, 0, 9004), at(b, 3, 0, 8000);
         }},
        {"all scattered backwards", [&](ArchiveBuilder& builder) {
             for (std::size_t i = 0; i < 4; ++i) {
                 builder.textures[i].tableAt = 300000 - 70001 * static_cast<std::int32_t>(i);
             }
             at(builder, 0, 0, 1000), at(builder, 2, 0, 250000);
         }}};
    for (const auto& [name, arrange] : cases) {
        for (const CddsType type : bothLayouts) {
            ArchiveBuilder builder{
                type,
                {{"wall.bmp", "DXT1", {{8, 4, std::string(16, 'a')}, {4, 2, std::string(8, 'b')}}},
                 {"none", "DXT5", {}},
                 {"  glass.tga", "dxt5", {{4, 4, std::string(16, 'c')}}},
                 {"empty level", "DXT1", {{1, 1, ""}}}}};
            arrange(builder);
            const CddsArchive archive = readBytes(builder.build());
            EXPECT_TRUE((archive == CddsArchive{type, recordsOf(builder), 4})) << name;
        }
    }
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

// Every prefix of an archive lacks at least the last byte of a level.
TEST(Reader, RefusesAnArchiveCutAnywhere) {
    for (const CddsType type : bothLayouts) {
        ArchiveBuilder builder{type, {{"a.bmp", "DXT1", {{8, 8, std::string(32, 'a')}, {4, 4, "b"}}}}};
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

TEST(Reader, TakesWhatSixteenAndThirtyOneBitsCanCount) {
    // Textures that share one table of 217 levels: as many levels as can be, in a small file.
    const TexturePlan many{"m", "DXT1", std::vector<LevelPlan>(217, {1, 1, ""}), 60000};
    ArchiveBuilder builder{CddsType::Type0C, std::vector(151, many)};
    EXPECT_EQ(readBytes(builder.build()).totalMipmapCount, 32767);
    builder.textures.push_back({"one", "DXT1", {{1, 1, ""}}});
    EXPECT_NE(damageOf(builder.build()).find("Texture 152"), std::string::npos);
    builder.textures.assign(32767, {"t", "DXT1", {}});
    EXPECT_EQ(readBytes(builder.build()).textures.size(), 32767U);
    // A table that begins in front of the last position and ends behind it, in a file of three gigabytes.
    builder.textures.assign(1, {"m", "DXT1", {{1, 1, ""}, {1, 1, ""}}, 1000});
    builder.patches = {{88, 0x7FFFFFF8 - 88}};
    EXPECT_NE(damageOf(builder.build(), 3'000'000'000).find("goes beyond any archive (at 2147483656)"),
              std::string::npos);
}

TEST(ArchiveFileInUse, IsTheOneThatWasReadAndNoOther) {
    const TemporaryFolder folder;
    ArchiveBuilder builder{CddsType::TypeCdds, {{"a.bmp", "DXT1", {{4, 4, "12345678"}}}}};
    const std::string bytes = builder.build(), path = folder.file("a.cdds");
    builder.textures[0].name = "b.bmp";
    const auto writes = [&](const std::string& content, int secondsLater = 0) {
        return [&folder, &path, content, secondsLater] {
            const auto before = fs::last_write_time(path);
            (void)folder.write("a.cdds", content);
            fs::last_write_time(path, before + std::chrono::seconds{secondsLater});
        };
    };
    const auto twinComes = [&] {
        fs::last_write_time(folder.write("twin", bytes), fs::last_write_time(path));
        fs::rename(folder.file("twin"), path);
    };
    const char* const changed = "has been changed by another";
    const char* const replaced = " has been replaced by another file since it was read";
    // What happens to it behind the read, and the words of the refusal; null: it is still the one.
    const std::tuple<const char*, std::function<void()>, const char*> cases[] = {
        {"nothing", [] {}, nullptr},
        {"other permissions", [&] { fs::permissions(path, fs::perms::owner_read); }, nullptr},
        {"moved and back", [&] { fs::rename(path, folder.file("b")), fs::rename(folder.file("b"), path); },
         nullptr},
        {"the same tables at the same time", writes(bytes.substr(0, bytes.size() - 1) + "9"), nullptr},
        {"other tables at the same time", writes(builder.build()), changed},
        {"no archive at the same time", writes(std::string(bytes.size(), 'x')), changed},
        {"longer at the same time", writes(bytes + "x"), changed},
        {"written at another time", writes(bytes, 1), changed},
        {"a twin in its place", twinComes, replaced},
        {"a folder in its place", [&] { fs::remove(path), fs::create_directory(path); }, replaced},
        {"removed", [&] { fs::remove(path); }, "has been removed or renamed"},
    };
    for (const auto& [name, happens, words] : cases) {
        fs::remove_all(path);
        const InputFile opened{folder.write("a.cdds", bytes)};
        const ArchiveFile file{opened};
        const CddsArchive catalogue = makeCatalogue(readArchive(opened));
        EXPECT_NO_THROW(file.requireTables(opened, catalogue)); // which what happens is not to hide behind
        happens();
        const std::string toRead = failureOf([&] { (void)file.open(path, catalogue); }).description();
        EXPECT_EQ(failureOf([&] { file.requireTables(opened, catalogue); }).description(), toRead) << name;
        EXPECT_NE(toRead.find(words == nullptr ? "no failure" : words), std::string::npos) << name << toRead;
        EXPECT_EQ(toRead.find(path) == std::string::npos, words == nullptr) << name;
    }
}

} // namespace
} // namespace pelrath::test
