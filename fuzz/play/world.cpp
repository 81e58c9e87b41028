#include "world.hpp"

#include "transfer/transfer_harness.hpp"

#include <filesystem>

namespace pelrath::monkey {

namespace {

namespace fs = std::filesystem;
using namespace test;

std::vector<TexturePlan> textures() {
    std::vector<TexturePlan> all{chainOf("wall.bmp", "DXT1", 64, 64),
                                 chainOf("\xE9toile.tga", "DXT5", 64, 32),
                                 chainOf("twin.bmp", "DXT1", 16, 16),
                                 chainOf("Twin.bmp", "DXT5", 8, 4),
                                 {"single", "DXT1", {{32, 32, plainBlocks(32, 32, blue)}}},
                                 {"levelless.bmp", "DXT1", {}},
                                 {"other.bmp", "ARGB", {{4, 4, std::string(64, 'a')}}},
                                 {"../up.bmp", "DXT1", {{4, 4, plainBlocks(4, 4, blue)}}},
                                 {"", "DXT5", {{4, 4, std::string(16, 'n')}}},
                                 {" blanks .tga ", "DXT5", {{4, 4, std::string(16, 'b')}}},
                                 {"liar.bmp", "DXT1", {{30000, -7, "8 bytes."}}},
                                 {"hollow.bmp", "DXT1", {{64, 64, ""}}},
                                 {std::string(32, 'x'), "DXT1", {{4, 4, plainBlocks(4, 4, yellow)}}}};
    std::int32_t at = 20'000; // behind the tables, with gaps that nothing may be written into
    for (TexturePlan& texture : all) {
        for (LevelPlan& level : texture.levels) {
            level.at = at;
            at += static_cast<std::int32_t>(level.data.size()) + 3;
        }
    }
    return all;
}

std::string contentOf(const std::string& path) {
    std::ifstream file{path, std::ios::binary};
    return {std::istreambuf_iterator<char>{file}, {}};
}

// The file's bytes but for what its levels hold.
std::string outsideLevels(const std::string& path) {
    std::string bytes = contentOf(path);
    try {
        for (const TextureRecord& texture : makeCatalogue(readArchive(InputFile{path})).textures) {
            for (const MipmapRecord& level : texture.mipmaps) {
                const auto size = static_cast<std::size_t>(level.dataSize);
                bytes.replace(static_cast<std::size_t>(level.dataOffset), size, size, '*');
            }
        }
    } catch (const DamagedArchive&) { // it has no levels
    }
    return bytes;
}

bool isLeftOver(const std::string& name) {
    return name == "tmp.dds" || name == "tmp1.dds" || name == "tmp2.dds" || name.starts_with(".pelrath-") ||
           name.ends_with("_tmppelrath.dds") || name.starts_with("~");
}

} // namespace

World::World(unsigned seed) {
    Dice dice{seed, 0, 0};
    for (const char* name : {"program", "images", "archives"}) {
        fs::create_directory(folder_.file(name));
    }
    for (const char* name : {"copies", "bazar"}) {
        const int kind = dice.below(8);
        if (kind == 0) (void)folder_.write(name, "a file in its place");
        if (kind > 1) fs::create_directory(folder_.file(name));
    }
    ArchiveBuilder cdds{CddsType::TypeCdds, textures()};
    ArchiveBuilder old{CddsType::Type0C, textures()};
    old.order = ArchiveBuilder::Order::DataFirst;
    ArchiveBuilder many{CddsType::TypeCdds};
    for (int i = 0; i < 3000; ++i) {
        many.textures.push_back({"more" + std::to_string(i), "DXT1", {{4, 4, "8 bytes."}}});
    }
    const std::string bytes = cdds.build();
    add("chains.cdds", bytes);
    add("old.cdds", old.build());
    add("large.cdds", bytes); // made sparse, so that its copying takes a while
    fs::resize_file(archives_.back().path, std::uintmax_t{64} << 20);
    add("many.cdds", many.build());
    add("empty.cdds", ArchiveBuilder{CddsType::TypeCdds}.build());
    add("damaged.cdds", bytes.substr(0, 900));
    add("rubbish.cdds", "no archive");
    for (Archive& archive : archives_) {
        archive.bytes = outsideLevels(archive.path);
    }
    constexpr struct {
        const char *name, *header;
        std::size_t rest;
    } images[] = {{"wall-64x64.dds", "128*00", 2744},
                  {"twin-16x16.dds", "128*00", 184},
                  {"more0-4x4.dds", "128*00", 8},
                  {"wall-64x64.bmp", "42 4d d12342 d0 d54 d40 d64 d64 w1 w24 24*00", 12288},
                  {"more0-4x4.bmp", "42 4d d102 d0 d54 d40 d4 d4 w1 w24 24*00", 48},
                  {"\u00E9toile-64x32.tga", "0000 02 9*00 w64 w32 20 08", 8192}};
    for (const auto& [name, header, rest] : images) {
        const std::size_t length = rest - (dice.onceIn(6) ? 5 : 0);
        (void)folder_.write(std::string{"images/"} + name, bytesOf(header) + std::string(length, 'i'));
    }
    const std::string firstRun = dice.onceIn(6) ? "" : "firsttimedone=True\n";
    (void)folder_.write("program/Pelrath.ini",
                        "; a remark\n[Setup]\n" + firstRun + "extractionfolder=" + folder_.file("images") +
                            "\n[Settings]\nbazartempfolder=" + folder_.file("bazar") +
                            "\ncddsbackupfolder=" + folder_.file("copies") + "\n[Other]\nkept=this\n");
}

void World::add(const std::string& name, const std::string& bytes) {
    archives_.push_back({folder_.write("archives/" + name, bytes), "", false});
}

std::string World::someArchive(Dice& dice) const {
    if (dice.onceIn(12)) return folder_.file(dice.onceIn(2) ? "archives" : "archives/none.cdds");
    return archives_[static_cast<std::size_t>(dice.below(dice.onceIn(2) ? 3 : 7))].path;
}

std::string World::someFolder(Dice& dice) const {
    constexpr std::array others{"copies", "bazar", "archives", "none", "archives/old.cdds", "", "program"};
    return folder_.file(dice.onceIn(3) ? dice.oneOf(others) : "images");
}

void World::disturb(Dice& dice, Board& board) {
    if (!dice.onceIn(3)) return disturbArchive(dice.oneOf(archives_), dice, board);
    constexpr std::array names{"images", "copies", "bazar", "program/Pelrath.ini"};
    const fs::path place = folder_.file(dice.oneOf(names)), away = place.string() + ".away";
    std::error_code ignored;
    if (fs::exists(away)) {
        board.act("file", "restore " + place.string());
        fs::remove_all(place, ignored);
        fs::rename(away, place, ignored);
        return;
    }
    board.act("file", "take away " + place.string());
    fs::rename(place, away, ignored);
    if (place.extension() == ".ini") {
        fs::create_directory(place, ignored);
    } else if (dice.onceIn(2)) {
        std::ofstream{place} << "a file in its place";
    }
}

void World::disturbArchive(Archive& archive, Dice& dice, Board& board) {
    constexpr std::array acts{"read-only", "writable", "other date", "cut", "other file", "gone", "restored"};
    const std::string_view act = dice.oneOf(acts);
    board.act("file", std::string{act} + " " + archive.path);
    std::error_code ignored;
    if (act == "read-only" || act == "writable") {
        fs::permissions(archive.path, fs::perms{act == "writable" ? 0644U : 0444U}, ignored);
    } else if (act == "other date") {
        fs::last_write_time(archive.path, fs::file_time_type::clock::now(), ignored);
    } else if (!std::exchange(archive.touched, true) || act == "restored") { // once, and back again
        const std::string fresh = archive.path + ".fresh";
        if (act == "cut") fs::resize_file(archive.path, fs::file_size(archive.path, ignored) / 2, ignored);
        if (act == "gone") fs::remove(archive.path, ignored);
        if (act == "other file") fs::copy_file(dice.oneOf(archives_).path, fresh, ignored);
        if (act == "restored") std::ofstream{fresh, std::ios::binary} << archive.bytes;
        fs::rename(fresh, archive.path, ignored);
    }
}

std::string World::wrongAbout(const std::string& path) const {
    const std::string name = fs::path{path}.filename();
    if (isLeftOver(name)) return path + " was left behind\n";
    for (const Archive& archive : archives_) {
        const std::string stem = fs::path{archive.path}.stem();
        const bool copy = name.starts_with(stem + "-") && name.ends_with(".cdds");
        if (archive.touched || (!copy && path != archive.path)) continue;
        if (outsideLevels(path) != archive.bytes) return path + " is not what " + archive.path + " was\n";
    }
    if (name.starts_with("Pelrath.ini") && fs::is_regular_file(path)) {
        for (const char* kept : {"; a remark\n", "[Other]\nkept=this\n", "[Setup]\n"}) {
            if (contentOf(path).find(kept) == std::string::npos) return path + " has lost something\n";
        }
    }
    return "";
}

std::string World::wrongs() const {
    std::string all;
    for (const auto& entry : fs::recursive_directory_iterator{folder_.path()}) {
        if (entry.is_regular_file()) all += wrongAbout(entry.path());
    }
    for (const Archive& archive : archives_) {
        if (!archive.touched && !fs::exists(archive.path)) all += archive.path + " is gone\n";
    }
    return all;
}

} // namespace pelrath::monkey
