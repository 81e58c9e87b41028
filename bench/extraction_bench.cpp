#include "working_user.hpp"

#include "platform/files.hpp"
#include "transfer/texture_extraction_insertion.hpp"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>

/// Extraction of a texture of 2048 x 2048 with its whole chain, through the dialog's own button.
namespace pelrath::bench {

namespace {

constexpr std::int32_t side = 2048;
constexpr double pixels = double{side} * side;

struct Workbench {
    Workbench() {
        std::string pattern = std::filesystem::temp_directory_path() / "pelrath-bench-XXXXXX";
        folder = mkdtemp(pattern.data());
        session.programFolder = session.exportImportFolder = folder;
        session.archivePath = folder + "/levels";
        session.selectedBaseName = "big";
        std::int32_t size = 0;
        for (const char* type : {"DXT1", "DXT5"}) {
            size = addTexture(type, size);
        }
        std::minstd_rand random;
        std::string bytes(static_cast<std::size_t>(size), '\0');
        std::generate(bytes.begin(), bytes.end(), [&random] { return static_cast<char>(random()); });
        std::ofstream{session.archivePath, std::ios::binary} << bytes;
    }
    Workbench(const Workbench&) = delete;
    Workbench& operator=(const Workbench&) = delete;
    ~Workbench() { std::filesystem::remove_all(folder); }

    std::int32_t addTexture(const char* type, std::int32_t at) {
        TextureRecord& texture = session.archive.textures.emplace_back();
        texture.name = "big.tga";
        texture.fourCC = type;
        for (std::int32_t width = side; width > 0; width /= 2) {
            const std::int32_t blocks = (width + 3) / 4;
            const std::int32_t size = blocks * blocks * (texture.fourCC == "DXT1" ? 8 : 16);
            texture.mipmaps.push_back({type, at, size, width, width});
            at += size;
        }
        texture.mipmapCount = static_cast<std::int32_t>(texture.mipmaps.size());
        return at;
    }

    void extract(benchmark::State& state, std::int16_t texture, FileTypeOption kind,
                 MipmapOperation operation) {
        session.mode = DialogMode::Extraction;
        session.selectedTexture = texture;
        user.work = [&] {
            dialog.optOutFileType[kind].select();
            if (kind == DdsFileType) dialog.optMipmaps[operation].select();
            dialog.chkOverwriteExistingFiles.setChecked(true);
            for ([[maybe_unused]] auto round : state) {
                dialog.cmdExtractInsert.press();
            }
        };
        dialog.show(owner);
        state.counters["megapixels/s"] =
            benchmark::Counter{pixels / 1e6, benchmark::Counter::kIsIterationInvariantRate};
    }

    std::string folder;
    Session session;
    AbortingBoxes boxes;
    WorkingUser user;
    DesktopAssociations associations;
    Window owner;
    TextureExtractionInsertion dialog{session, {boxes, user, associations, [] {}, [] {}}};
};

void ddsLevel(benchmark::State& state) { Workbench{}.extract(state, 0, DdsFileType, Single); }
void ddsChain(benchmark::State& state) { Workbench{}.extract(state, 0, DdsFileType, Embedded); }
void bmp(benchmark::State& state) { Workbench{}.extract(state, 0, NativeFileType, Single); }
void tga(benchmark::State& state) { Workbench{}.extract(state, 1, NativeFileType, Single); }

// The bytes of the chain as a process of its own copies them, left to the system or brought to the disk.
void copyOfTheChain(benchmark::State& state, const std::string& behind) {
    Workbench bench;
    const std::string from = bench.folder + "/big-2048x2048.dds";
    bench.session.selectedTexture = 0;
    const DdsExport dds{bench.session.archive, bench.session.archivePath};
    dds.writeDdsChainFile(from, 0);
    const std::string copy = "'" + from + ".copy'";
    const std::string line =
        "cp '" + from + "' " + copy + (behind.empty() ? "" : " && " + behind + " " + copy);
    for ([[maybe_unused]] auto round : state) {
        if (std::system(line.c_str()) != 0) state.SkipWithError("the copy failed");
    }
}

BENCHMARK(ddsLevel)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(ddsChain)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(copyOfTheChain, cp, "")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(copyOfTheChain, cp_and_sync, "sync")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(bmp)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(tga)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

} // namespace pelrath::bench
