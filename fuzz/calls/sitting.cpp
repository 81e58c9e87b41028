#include "calls/sitting.hpp"

#include <algorithm>
#include <chrono>
#include <random>
#include <stdexcept>
#include <thread>

namespace pelrath::calls {

using namespace test;

Sitting::Sitting(std::string folder, const std::string& programFolder) : folder_(std::move(folder)) {
    session.programFolder = file(programFolder);
    windows_.returned = [this] {
        if (!main.window.isUnloaded()) main.activate();
    };
}

namespace {

std::size_t threads() {
    const std::filesystem::directory_iterator all{"/proc/self/task"};
    return static_cast<std::size_t>(std::distance(begin(all), end(all)));
}

void waitForOthers(std::size_t threadsBefore) {
    for (int i = 0; i < 2000 && threads() > threadsBefore; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds{1});
    }
}

} // namespace

void Sitting::start() {
    const std::size_t threadsBefore = threads();
    main.load();
    waitForOthers(threadsBefore);
    if (main.window.isUnloaded()) return;
    main.window.setFrame(100, 350);
    main.layOut();
    main.activate();
}

void Sitting::open(const std::string& archive) {
    fileOpen_.answer = file(archive);
    main.Command1.press();
}

std::string Sitting::transfer(CommandButton& button, const std::string& folder, const Steps& steps) {
    std::string summary;
    windows_.answer = [&] {
        all(steps)(main.transfer);
        run(main.transfer);
        summary = main.transfer.ExtractSummary.text();
    };
    main.Text8.setText(file(folder));
    button.press();
    windows_.answer = nullptr; // where no dialog opened
    return summary;
}

namespace {

int numberBehind(const std::string& word, std::size_t at) { return std::stoi(word.substr(at)); }

/// A texture with its whole chain, of bytes that say which level they belong to no less than where in it.
TexturePlan noisyChain(const std::string& name, const std::string& type, std::int32_t side) {
    TexturePlan plan = chainOf(name, type, side, side);
    std::minstd_rand noise{static_cast<unsigned char>(name.front())};
    for (LevelPlan& level : plan.levels) {
        std::generate(level.data.begin(), level.data.end(), [&] { return static_cast<char>(noise() >> 8); });
    }
    return plan;
}

/// 24 bits a pixel where there is no alpha, 32 where there is.
std::string pixels(std::int32_t side, bool alpha) {
    std::string bytes;
    for (std::int32_t y = 0; y < side; ++y) {
        for (std::int32_t x = 0; x < side; ++x) {
            bytes += little(4 * x, 1) + little(4 * y, 1) + little(x ^ y, 1) + (alpha ? little(2 * x, 1) : "");
        }
        if (!alpha) bytes.append(static_cast<std::size_t>(-3 * side & 3), '\0');
    }
    return bytes;
}

std::string targa(std::int32_t side) {
    return bytesOf("00 00 02 9*00") + little(side, 2) + little(side, 2) + bytesOf("20 28") +
           pixels(side, true);
}

std::string bitmap(std::int32_t side) {
    const std::string data = pixels(side, false);
    const auto size = static_cast<std::int64_t>(data.size());
    return "BM" + little(54 + size, 4) + bytesOf("d0 d54 d40") + little(side, 4) + little(side, 4) +
           bytesOf("w1 w24 d0") + little(size, 4) + bytesOf("d2835 d2835 d0 d0") + data;
}

std::string dds(const std::string& type, const LevelPlan& level, int levels, const std::string& blocks) {
    return "DDS " + bytesOf("d124 d659463") + little(level.height, 4) + little(level.width, 4) +
           little(static_cast<std::int64_t>(level.data.size()), 4) + bytesOf("d0") + little(levels, 4) +
           bytesOf("44*00 d32 d4") + type + bytesOf("20*00 d4198408 16*00") + blocks;
}

/// All that can be inserted into a texture: its levels' DDS files, the first with the whole chain, and their
/// images.
void writeSources(const std::string& folder, TexturePlan plan) {
    std::string chain;
    for (LevelPlan& level : plan.levels) {
        std::transform(level.data.begin(), level.data.end(), level.data.begin(),
                       [](char byte) { return static_cast<char>(~byte); });
        chain += level.data;
    }
    for (std::size_t i = 0; i < plan.levels.size(); ++i) {
        const LevelPlan& level = plan.levels[i];
        const std::string path = folder + "/" + std::string{withoutExtension(plan.name)} + "-" +
                                 std::to_string(level.width) + "x" + std::to_string(level.height);
        std::ofstream{path + ".dds", std::ios::binary}
            << (i == 0 ? dds(plan.type, level, static_cast<int>(plan.levels.size()), chain)
                       : dds(plan.type, level, 1, level.data));
        const bool alpha = plan.type == "DXT5";
        std::ofstream{path + (alpha ? ".tga" : ".bmp"), std::ios::binary}
            << (alpha ? targa(level.width) : bitmap(level.width));
    }
}

} // namespace

Step stepOf(const std::string& word) {
    if (word.starts_with("level=")) return all({noLevel, mark(numberBehind(word, 6))});
    if (word.starts_with("filter=")) return filter(numberBehind(word, 7));
    const std::pair<const char*, Step> steps[] = {
        {"dds", ddsFiles},        {"images", images},          {"single", single},
        {"embedded", embedded},   {"external", external},      {"create", create},
        {"bazar", intoBazarTemp}, {"nocopy", withoutSafeCopy}, {"noarchive", notIntoArchive}};
    for (const auto& [name, step] : steps) {
        if (word == name) return step;
    }
    throw std::invalid_argument{"no such step: " + word};
}

void prepare(const std::string& folder, int side) {
    for (const char* name : {"out", "extracted", "copies", "bazar", "program", "tmp"}) {
        std::filesystem::create_directories(folder + "/" + name);
    }
    const std::string sides = std::to_string(side) + "x" + std::to_string(side);
    TexturePlan wall = noisyChain("wall.tga", "DXT5", side);
    std::int32_t at = 4 * side * side + 8192;
    for (LevelPlan& level : wall.levels) {
        at -= static_cast<std::int32_t>(level.data.size()) + 123;
        level.at = at;
    }
    ArchiveBuilder builder{
        CddsType::TypeCdds,
        {noisyChain("roof.bmp", "DXT1", side), wall, noisyChain("other.bmp", "DXT1", side)}};
    std::ofstream{folder + "/a.cdds", std::ios::binary} << builder.build();
    for (const std::string& name : {"extracted/roof-" + sides + ".bmp", "extracted/wall-" + sides + ".tga",
                                    std::string{"bazar/roof.bmp"}, std::string{"bazar/wall.tga"}}) {
        std::ofstream{folder + "/" + name} << "an older " << name;
    }
    writeSources(folder + "/out", builder.textures[0]);
    writeSources(folder + "/out", builder.textures[1]);
    std::ofstream{folder + "/program/Pelrath.ini"}
        << "[Setup]\nextractionfolder=" << folder << "/out\nfirsttimedone=True\n[Settings]\nMainTop=40\n"
        << "bazartempfolder=" << folder << "/bazar\ncddsbackupfolder=" << folder << "/copies\n";
}

} // namespace pelrath::calls
