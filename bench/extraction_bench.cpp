#include "large_archive.hpp"
#include "no_associations.hpp"
#include "working_user.hpp"

#include "platform/posix/files.hpp"
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
constexpr int levelCount = 12;

struct Workbench {
    explicit Workbench(bool dxt5 = false) {
        std::string pattern = std::filesystem::temp_directory_path() / "pelrath-bench-XXXXXX";
        folder = mkdtemp(pattern.data());
        session.programFolder = session.exportImportFolder = folder;
        session.archivePath = folder + "/levels";
        session.selectedBaseName = "big";
        session.selectedTexture = 0;
        LargeArchive{true, 1, levelCount, side, 1, false, dxt5}.write(session.archivePath);
        session.archive = makeCatalogue(readArchive(InputFile{session.archivePath}));
        fillLevels();
        session.archiveFile = ArchiveFile{InputFile{session.archivePath}};
    }
    Workbench(const Workbench&) = delete;
    Workbench& operator=(const Workbench&) = delete;
    ~Workbench() { std::filesystem::remove_all(folder); }

    void fillLevels() const {
        std::fstream file{session.archivePath, std::ios::binary | std::ios::in | std::ios::out};
        std::minstd_rand random;
        for (const MipmapRecord& level : session.archive.textures[0].mipmaps) {
            std::string bytes(static_cast<std::size_t>(level.dataSize), '\0');
            std::generate(bytes.begin(), bytes.end(), [&random] { return static_cast<char>(random()); });
            file.seekp(level.dataOffset);
            file << bytes;
        }
    }

    void extract(benchmark::State& state, FileTypeOption kind, MipmapOperation operation) {
        session.mode = DialogMode::Extraction;
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
    NoAssociations associations;
    Window owner;
    InsertionRecovery recovery{boxes, session};
    TextureExtractionInsertion dialog{session, {boxes, user, associations, [] {}, [] {}, recovery}};
};

void ddsLevel(benchmark::State& state) { Workbench{}.extract(state, DdsFileType, Single); }
void ddsChain(benchmark::State& state) { Workbench{}.extract(state, DdsFileType, Embedded); }
void bmp(benchmark::State& state) { Workbench{}.extract(state, NativeFileType, Single); }
void tga(benchmark::State& state) { Workbench{true}.extract(state, NativeFileType, Single); }

// The bytes of the chain as a process of its own copies them, left to the system or brought to the disk.
void copyOfTheChain(benchmark::State& state, const std::string& behind) {
    Workbench bench;
    const std::string from = bench.folder + "/big-2048x2048.dds";
    const DdsExport dds{bench.session.archive, bench.session.archivePath, bench.session.archiveFile};
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
