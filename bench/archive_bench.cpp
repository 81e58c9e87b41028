#include "archive/listing.hpp"
#include "archive/reader.hpp"
#include "controls/list_box.hpp"
#include "large_archive.hpp"

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

template <class Tables>
std::size_t list(const Tables& tables, const CddsArchive& archive, ListBox& textures, ListBox& names,
                 ListBox& mipmaps) {
    std::string line;
    std::int32_t number = 0;
    textures.reserve(static_cast<int>(tables.textures.size()), tables.textures.size() * 258);
    mipmaps.reserve(static_cast<int>(tables.mipmaps.size()), tables.mipmaps.size() * 112);
    for (std::size_t i = 0; i < tables.textures.size(); ++i) {
        listing::textureLine(tables.textures[i], static_cast<std::int32_t>(i), archive.textures[i].name,
                             line);
        textures.append(line);
        names.append(listing::nameListEntry(archive.textures[i].name));
    }
    for (const PlacedMipmapEntry& mipmap : tables.mipmaps) {
        listing::mipmapLine(mipmap, ++number, line);
        mipmaps.append(line);
    }
    return tables.textures.size();
}

// Reading, checking, the catalogue and every line of the panes.
void openAndList(benchmark::State& state) {
    const std::string& path = files[static_cast<int>(state.range(0))];
    for (auto _ : state) {
        ListBox textures;
        ListBox names;
        ListBox mipmaps{ListBox::Choice::Several};
        const ArchiveContents contents = readArchive(InputFile{path});
        if (const auto* t = std::get_if<Tables0C>(&contents))
            list(*t, makeCatalogue(*t), textures, names, mipmaps);
        if (const auto* t = std::get_if<TablesCdds>(&contents))
            list(*t, makeCatalogue(*t), textures, names, mipmaps);
        benchmark::DoNotOptimize(mipmaps.count());
    }
    const LargeArchive& archive = archives[state.range(0)];
    state.SetLabel(std::string{archive.cdds ? "cdds, " : "0C, "} + std::to_string(archive.textures) +
                   " textures of " + std::to_string(archive.levels) +
                   (archive.scattered ? " levels, tables scattered" : " levels"));
}
BENCHMARK(openAndList)->DenseRange(0, std::size(archives) - 1)->Unit(benchmark::kMillisecond);

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
            const std::string_view last = names.line(32766);
            const std::string copy{last};
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
