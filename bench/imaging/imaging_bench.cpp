#include "../working_user.hpp"

#include "imaging/block_decoder.hpp"
#include "imaging/image_library_facade.hpp"

#include <benchmark/benchmark.h>
#include <squish.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

/// Megapixels a second of one core for a picture of 2048 x 2048.
namespace pelrath::bench {

namespace {

constexpr std::uint32_t side = 2048;
constexpr double pixels = double{side} * side;

/// A started library with one picture, smooth and noisy in turns, in a file of each kind.
struct Workbench {
    Workbench() {
        std::string pattern = std::filesystem::temp_directory_path() / "pelrath-bench-XXXXXX";
        folder = mkdtemp(pattern.data());
        facade.initImageLibrary();
        writeSource();
        load(".tga");
        for (const OutputFileType type : {OutputFileType::Bmp, OutputFileType::DdsDxt1}) {
            save(type);
        }
        // Beside the other DDS file, under a name of its own.
        save(OutputFileType::DdsDxt5, "5");
        images.remove(image);
    }
    Workbench(const Workbench&) = delete;
    Workbench& operator=(const Workbench&) = delete;
    ~Workbench() {
        images.shutDown();
        std::filesystem::remove_all(folder);
    }

    void writeSource() const {
        std::string bytes{"\0\0\2\0\0\0\0\0\0\0\0\0\0\x08\0\x08\x20\x28", 18};
        std::uint32_t state = 1;
        for (std::uint32_t i = 0; i < side * side; ++i) {
            state = state * 1103515245 + 12345;
            const std::uint32_t noise = (i / 256 & 1U) != 0 ? state >> 26 : 0;
            for (const std::uint32_t channel :
                 {i / side / 8 + noise, i % side / 8, (i / 64 + noise) & 255U, i / 3}) {
                bytes += static_cast<char>(channel & 255U);
            }
        }
        std::ofstream{folder + "/source.tga", std::ios::binary} << bytes;
    }

    void load(const std::string& extension) {
        if (!facade.loadImage(folder + "/source" + extension, image)) std::abort();
    }
    void save(OutputFileType type, const std::string& suffix = "") {
        facade.setSaveImageOptions(static_cast<std::int32_t>(type), options.imageType, options.extension);
        if (!facade.saveImage(options.imageType, folder + "/source" + suffix + options.extension, true))
            std::abort();
    }

    AbortingBoxes boxes;
    SaveImageOptions options;
    ImageLibraryFacade facade{boxes, options};
    LibraryImages images;
    std::string folder;
    std::uint32_t image = 0;
};

Workbench& workbench() {
    static Workbench bench;
    return bench;
}

void report(benchmark::State& state) {
    state.counters["Mpx/s"] = benchmark::Counter(pixels / 1e6 * static_cast<double>(state.iterations()),
                                                 benchmark::Counter::kIsRate);
}

void load(benchmark::State& state, const char* extension) {
    Workbench& bench = workbench();
    for ([[maybe_unused]] auto _ : state) {
        bench.load(extension);
        bench.images.remove(bench.image);
    }
    report(state);
}

void save(benchmark::State& state, OutputFileType type, bool mipmaps) {
    Workbench& bench = workbench();
    bench.load(".tga");
    bench.options.buildMipmaps = mipmaps;
    for ([[maybe_unused]] auto _ : state) {
        bench.save(type, "-saved");
    }
    bench.options.buildMipmaps = false;
    bench.images.remove(bench.image);
    report(state);
}

/// What the library's own save takes, with its file.
void saveByLibrary(benchmark::State& state, OutputFileType type) {
    Workbench& bench = workbench();
    bench.load(".tga");
    bench.save(type, "-saved"); // converts the picture
    for ([[maybe_unused]] auto _ : state) {
        if (imageLibrary().ilSaveImage((bench.folder + "/source-saved.dds").c_str()) == 0) std::abort();
    }
    bench.images.remove(bench.image);
    report(state);
}

/// To half the width and height; the pixels counted are those before.
void shrink(benchmark::State& state, std::int16_t filter) {
    Workbench& bench = workbench();
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        bench.load(".tga");
        state.ResumeTiming();
        if (!bench.facade.scaleImage(side / 2, side / 2, filter)) std::abort();
        state.PauseTiming();
        bench.images.remove(bench.image);
        state.ResumeTiming();
    }
    report(state);
}

std::vector<std::byte> blocksOf(BlockFormat format) {
    const std::string name = format == BlockFormat::Dxt1 ? "/source.dds" : "/source5.dds";
    std::ifstream file{workbench().folder + name, std::ios::binary};
    file.seekg(128);
    std::vector<std::byte> blocks(static_cast<std::size_t>(bytesPerLevel(format, side, side)));
    file.read(reinterpret_cast<char*>(blocks.data()), static_cast<std::streamsize>(blocks.size()));
    return blocks;
}

void decode(benchmark::State& state, BlockFormat format) {
    const std::vector<std::byte> blocks = blocksOf(format);
    std::vector<std::byte> texels(std::size_t{side} * side * 4);
    for ([[maybe_unused]] auto _ : state) {
        decodeLevel(format, blocks, side, side, texels);
        benchmark::ClobberMemory();
    }
    report(state);
}

void decodeWithSquish(benchmark::State& state, BlockFormat format) {
    const std::vector<std::byte> blocks = blocksOf(format);
    std::vector<squish::u8> texels(std::size_t{side} * side * 4);
    const int flags = format == BlockFormat::Dxt1 ? squish::kDxt1 : squish::kDxt5;
    for ([[maybe_unused]] auto _ : state) {
        squish::DecompressImage(texels.data(), side, side, blocks.data(), flags);
        benchmark::ClobberMemory();
    }
    report(state);
}

BENCHMARK_CAPTURE(load, bmp, ".bmp")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(load, tga, ".tga")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(load, dxt1, ".dds")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(load, dxt5, "5.dds")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(save, bmp, OutputFileType::Bmp, false)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime();
BENCHMARK_CAPTURE(save, tga, OutputFileType::Tga, false)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime();
BENCHMARK_CAPTURE(save, dxt1, OutputFileType::DdsDxt1, false)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime();
BENCHMARK_CAPTURE(save, dxt5, OutputFileType::DdsDxt5, false)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime();
BENCHMARK_CAPTURE(save, dxt1_chain, OutputFileType::DdsDxt1, true)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime();
BENCHMARK_CAPTURE(save, dxt5_chain, OutputFileType::DdsDxt5, true)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime();
BENCHMARK_CAPTURE(saveByLibrary, dxt1, OutputFileType::DdsDxt1)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime();
BENCHMARK_CAPTURE(saveByLibrary, dxt5, OutputFileType::DdsDxt5)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime();
BENCHMARK_CAPTURE(shrink, nearest, std::int16_t{0})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(shrink, box, std::int16_t{3})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(shrink, triangle, std::int16_t{4})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(shrink, lanczos, std::int16_t{7})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(decode, dxt1, BlockFormat::Dxt1)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(decode, dxt5, BlockFormat::Dxt5)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(decodeWithSquish, dxt1, BlockFormat::Dxt1)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(decodeWithSquish, dxt5, BlockFormat::Dxt5)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace pelrath::bench
