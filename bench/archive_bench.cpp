#include "archive/listing.hpp"
#include "archive/reader.hpp"
#include "controls/list_box.hpp"
#include "large_archive.hpp"
#include "platform/text.hpp"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <map>

namespace {

using namespace pelrath;
using bench::LargeArchive;

const LargeArchive archives[] = {
    {false, 32767, 1, 4}, {true, 32767, 1, 4},          {false, 3640, 9},
    {true, 3640, 9},      {true, 32767, 1, 4, 1, true}, {true, 3640, 9, 256, 1, true},
};

class Files {
public:
    const std::string& operator[](int index) {
        std::string& path = paths_[index];
        if (path.empty()) {
            path = (std::filesystem::temp_directory_path() /
                    ("pelrath-bench-" + std::to_string(index) + ".cdds"))
                       .string();
            archives[index].write(path);
        }
        return path;
    }
    ~Files() {
        for (const auto& [index, path] : paths_) {
            std::filesystem::remove(path);
        }
    }

private:
    std::map<int, std::string> paths_;
};
Files files;

void list(const NotAnArchive& /*has nothing*/, std::string& /*line*/) {}

template <class Tables>
void list(const Tables& tables, std::string& line) {
    std::int32_t number = 0;
    for (const auto& texture : tables.textures) {
        listing::textureLine(texture, number++, fieldText(texture.entry.name), line);
        benchmark::DoNotOptimize(line.data());
    }
    number = 0;
    for (const PlacedMipmapEntry& mipmap : tables.mipmaps) {
        listing::mipmapLine(mipmap, ++number, line);
        benchmark::DoNotOptimize(line.data());
    }
}

// What is done before the first line is shown: reading, checking and the catalogue. The second argument adds
// the making of every line of the panes, as if they were scrolled through.
void openAndList(benchmark::State& state) {
    const std::string& path = files[static_cast<int>(state.range(0))];
    std::string line;
    for (auto _ : state) {
        const ArchiveContents contents = readArchive(InputFile{path});
        benchmark::DoNotOptimize(makeCatalogue(contents).textures.data());
        if (state.range(1) != 0) std::visit([&](const auto& tables) { list(tables, line); }, contents);
    }
    const LargeArchive& archive = archives[state.range(0)];
    state.SetLabel(std::string{archive.cdds ? "cdds, " : "0C, "} + std::to_string(archive.textures) +
                   " textures of " + std::to_string(archive.levels) +
                   (archive.scattered ? " levels, tables scattered" : " levels") +
                   (state.range(1) != 0 ? ", every line" : ""));
}
BENCHMARK(openAndList)
    ->ArgsProduct({benchmark::CreateDenseRange(0, std::size(archives) - 1, 1), {0, 1}})
    ->Unit(benchmark::kMillisecond);

// 32767 names that differ only in their last characters, and a prefix that none of them has in full.
void searchPrefix(benchmark::State& state) {
    ListBox names;
    for (int i = 0; i < 32767; ++i) {
        names.append("texture_of_an_aircraft_" + std::to_string(10000 + i) + ".bmp");
    }
    if (state.range(0) == 0) (void)names.findPrefix("t"); // the list's own preparation, once after a read
    for (auto _ : state) {
        if (state.range(0) != 0) {
            state.PauseTiming();
            const std::string copy = names.line(32766);
            names.clear();
            for (int i = 0; i < 32767; ++i) {
                names.append(copy);
            }
            state.ResumeTiming();
        }
        benchmark::DoNotOptimize(names.findPrefix("TEXTURE_OF_AN_AIRCRAFT_42766.bmq"));
    }
    state.SetLabel(state.range(0) == 0 ? "worst case" : "worst case, first key after a read");
}
BENCHMARK(searchPrefix)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
