#include "large_archive.hpp"
#include "no_associations.hpp"
#include "working_user.hpp"

#include "archive/reader.hpp"
#include "platform/posix/file_copy.hpp"
#include "transfer/dds_builder.hpp"
#include "transfer/image_copy.hpp"
#include "transfer/image_library_use.hpp"
#include "transfer/level_writer.hpp"
#include "transfer/texture_extraction_insertion.hpp"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>

// Insertion of a 2048 x 2048 image with all its levels, as a whole and by its parts, and the safe copy.
// Megapixels count the largest level alone.

namespace pelrath::bench {

namespace {

constexpr int usualSide = 2048;
constexpr int levelCount = 12;
constexpr const char* filterNames[] = {"nearest", "linear", "bilinear", "box",     "triangle",
                                       "bell",    "spline", "lanczos",  "mitchell"};

/// One that nobody else has, on the disk that temporary files are on.
std::string newFolder() {
    std::string path = std::filesystem::temp_directory_path() / "pelrath-bench-XXXXXX";
    if (mkdtemp(path.data()) == nullptr) std::exit(1);
    return path;
}

/// How long the window is left alone at most while it is busy.
class LongestPause : public BusySign {
public:
    void show(const std::string& /*what*/, std::uint64_t /*done*/, std::uint64_t /*total*/) override {
        const Clock::time_point now = Clock::now();
        longest_ = std::max(longest_, now - last_);
        last_ = now;
    }
    void clear() override { show("", 0, 0); }

    void begin() { last_ = Clock::now(); }
    [[nodiscard]] double milliseconds() const {
        return std::chrono::duration<double, std::milli>{longest_}.count();
    }

private:
    using Clock = std::chrono::steady_clock;
    Clock::time_point last_;
    Clock::duration longest_{};
};

/// An archive with one texture, the dialog over it, and images of it in three kinds.
struct Workplace {
    explicit Workplace(int theSide = usualSide) : side(theSide) {
        session.programFolder = session.exportImportFolder = folder;
        session.archivePath = folder + "/a.cdds";
        LargeArchive{true, 1, levelCount, side}.write(session.archivePath);
        const InputFile archive{session.archivePath};
        session.archiveFile = ArchiveFile{archive};
        session.archive = makeCatalogue(readArchive(archive));
        session.selectedTexture = 0;
        session.selectedBaseName = "photo";
        use.start();
        writeSource();
    }
    ~Workplace() {
        use.shutDown();
        std::filesystem::remove_all(folder);
    }
    Workplace(const Workplace&) = delete;
    Workplace& operator=(const Workplace&) = delete;

    [[nodiscard]] std::string source() const {
        const std::string number = std::to_string(side);
        return folder + "/photo-" + number + "x" + number + ".bmp";
    }
    /// The same picture with alpha.
    [[nodiscard]] std::string sourceWithAlpha() const { return folder + "/photo.tga"; }
    [[nodiscard]] const std::vector<MipmapRecord>& levels() const {
        return session.archive.textures[0].mipmaps;
    }
    void chooseDds() {
        facade.setSaveImageOptions(static_cast<int>(OutputFileType::DdsDxt1), options.imageType,
                                   options.extension);
    }

    int side;
    std::string folder = newFolder();
    Session session;
    AbortingBoxes boxes;
    WorkingUser user;
    NoAssociations associations;
    SaveImageOptions options;
    ImageLibraryFacade facade{boxes, options};
    LibraryImages images;
    ImageLibraryUse use{facade, images};
    TransferImaging imaging{facade, images, options, use};
    LongestPause pause;
    InsertionRecovery recovery{boxes, session};
    TextureExtractionInsertion dialog{session, {boxes, user, associations, [] {}, [] {}, recovery, &pause}};
    Window owner;

private:
    // Soft slopes with a little grain, as in a photograph.
    void writeSource() const {
        const auto width = static_cast<std::size_t>(side);
        std::vector<char> bytes(54 + 3 * width * width);
        const auto put = [&bytes](std::size_t at, std::uint32_t value) {
            std::memcpy(&bytes[at], &value, sizeof value);
        };
        std::memcpy(bytes.data(), "BM", 2);
        put(2, static_cast<std::uint32_t>(bytes.size()));
        put(10, 54);
        put(14, 40);
        put(18, static_cast<std::uint32_t>(side));
        put(22, static_cast<std::uint32_t>(side));
        put(26, 1 | 24U << 16);
        std::uint32_t grain = 1;
        for (std::size_t i = 54; i < bytes.size(); ++i) {
            grain = grain * 1664525U + 1013904223U;
            bytes[i] = static_cast<char>(((i / (3 * width)) + (i % (3 * width)) / 5) / 16 + (grain >> 28));
        }
        writeFile(source(), bytes);
        std::vector<char> withAlpha{0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0};
        for (const int part : {side & 255, side >> 8, side & 255, side >> 8, 32, 8}) {
            withAlpha.push_back(static_cast<char>(part));
        }
        for (std::size_t i = 54; i < bytes.size(); i += 3) {
            withAlpha.insert(withAlpha.end(), &bytes[i], &bytes[i] + 3);
            withAlpha.push_back(static_cast<char>(i / 768));
        }
        writeFile(sourceWithAlpha(), withAlpha);
    }
    static void writeFile(const std::string& path, const std::vector<char>& bytes) {
        std::ofstream{path, std::ios::binary}.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }
};

void countMegapixels(benchmark::State& state) {
    state.counters["Mpx/s"] = benchmark::Counter(
        static_cast<double>(state.iterations()) * usualSide * usualSide / 1e6, benchmark::Counter::kIsRate);
}

void insertWhole(benchmark::State& state) {
    Workplace place;
    place.session.mode = DialogMode::Insertion;
    place.user.work = [&] {
        place.dialog.optOutFileType[NativeFileType].select();
        place.dialog.lstScaleFilter.select(static_cast<int>(state.range(0)));
        place.dialog.chkSaveCdds.setChecked(false);
        for (auto _ : state)
            place.dialog.cmdExtractInsert.press();
    };
    place.dialog.show(place.owner);
    state.SetLabel(filterNames[state.range(0)]);
    countMegapixels(state);
}
BENCHMARK(insertWhole)
    ->DenseRange(0, 8)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime();

/// The dialog's whole work on a huge texture, and the longest time in it without a sign of work.
void pauses(benchmark::State& state) {
    Workplace place{static_cast<int>(state.range(0))};
    const bool insertion = state.range(1) >= 0;
    place.session.mode = insertion ? DialogMode::Insertion : DialogMode::Extraction;
    place.user.work = [&] {
        place.dialog.optOutFileType[NativeFileType].select();
        if (insertion) place.dialog.lstScaleFilter.select(static_cast<int>(state.range(1)));
        place.dialog.chkOverwriteExistingFiles.setChecked(true);
        place.dialog.chkSaveCdds.setChecked(false);
        place.dialog.chkLaunchEditor.setChecked(false);
        for (auto _ : state) {
            place.pause.begin();
            place.dialog.cmdExtractInsert.press();
            place.pause.clear();
        }
    };
    place.dialog.show(place.owner);
    state.SetLabel(insertion ? filterNames[state.range(1)] : "extraction");
    state.counters["longest pause, ms"] = place.pause.milliseconds();
}
BENCHMARK(pauses)
    ->ArgsProduct({{8192}, {-1, 2, 7}})
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime()
    ->Iterations(1);

void load(benchmark::State& state) {
    Workplace place;
    for (auto _ : state) {
        LoadedImage image{place.facade, place.images, place.source()};
        if (!image) std::exit(1);
        image.remove();
    }
    countMegapixels(state);
}
BENCHMARK(load)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();

/// Every level below the first.
void scale(benchmark::State& state) {
    Workplace place;
    const bool alpha = state.range(1) != 0;
    const LoadedImage image{place.facade, place.images, alpha ? place.sourceWithAlpha() : place.source()};
    for (auto _ : state) {
        place.images.bind(image.id());
        LevelSource source{place.imaging, image.id()};
        for (std::size_t i = 1; i < place.levels().size(); ++i) {
            ImageCopy copy{place.facade, place.images,
                           source.imageFor(place.levels()[i].width, place.levels()[i].height)};
            place.facade.scaleImage(place.levels()[i].width, place.levels()[i].height,
                                    static_cast<std::int16_t>(state.range(0)));
            copy.remove();
        }
    }
    state.SetLabel(filterNames[state.range(0)] + std::string{alpha ? ", with alpha" : ", opaque"});
    countMegapixels(state);
}
BENCHMARK(scale)
    ->ArgsProduct({benchmark::CreateDenseRange(0, 8, 1), {0, 1}})
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime();

/// Level 0 alone, with its file.
void compress(benchmark::State& state) {
    Workplace place;
    const LoadedImage image{place.facade, place.images, place.source()};
    place.chooseDds();
    place.options.buildMipmaps = false;
    for (auto _ : state)
        place.facade.saveImage(place.options.imageType, place.folder + "/built.dds", true);
    countMegapixels(state);
}
BENCHMARK(compress)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();

/// Twelve levels out of a file into the archive, each of them flushed.
void write(benchmark::State& state) {
    Workplace place;
    const LoadedImage image{place.facade, place.images, place.source()};
    place.chooseDds();
    {
        HeldArchive archive{place.session};
        DdsBuilder{place.imaging, place.session.programFolder}.buildWithLibraryChain(
            place.folder + "/built.dds", archive, 0, levelCount);
    }
    for (auto _ : state) {
        HeldArchive archive{place.session};
        LevelWriter writer{archive};
        if (writer.writeMipmapLevels(place.folder + "/built.dds", 0, true, LevelWriter::everyLevel) !=
            levelCount)
            std::exit(1);
        archive.finish(false);
    }
    countMegapixels(state);
}
BENCHMARK(write)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();

/// A file of this many megabytes of which no two pages are the same.
class BigFile {
public:
    explicit BigFile(std::int64_t megabytes) {
        std::vector<std::uint64_t> block(std::size_t{1} << 17);
        std::ofstream out{path, std::ios::binary};
        for (std::uint64_t i = 0; i < static_cast<std::uint64_t>(megabytes); ++i) {
            for (std::size_t j = 0; j < block.size(); ++j) {
                block[j] = (i << 32) + j;
            }
            out.write(reinterpret_cast<const char*>(block.data()), std::streamsize{1} << 20);
        }
    }
    ~BigFile() { std::filesystem::remove_all(folder); }
    BigFile(const BigFile&) = delete;
    BigFile& operator=(const BigFile&) = delete;

    std::string folder = newFolder();
    std::string path = folder + "/big.cdds";
};

void safeCopy(benchmark::State& state) {
    const BigFile file{state.range(0)};
    const std::string name = file.folder + "/big-0.cdds";
    for (auto _ : state) {
        FileCopy copy{InputFile{file.path}, file.folder,
                      [](std::uint64_t /*done*/, std::uint64_t /*total*/) {}};
        if (!copy.takeName(name)) std::exit(1);
        state.PauseTiming();
        std::filesystem::remove(name);
        state.ResumeTiming();
    }
    state.SetBytesProcessed(state.iterations() * state.range(0) << 20);
}
BENCHMARK(safeCopy)
    ->Arg(64)
    ->Arg(1024)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime()
    ->Iterations(4);

/// The system's own copying, with a flush as the safe copy has one, and without.
void systemCopy(benchmark::State& state) {
    const BigFile file{state.range(0)};
    const std::string name = file.folder + "/big-0.cdds";
    const std::string command =
        "cp " + file.path + " " + name + (state.range(1) != 0 ? " && sync " + name : "");
    for (auto _ : state) {
        if (std::system(command.c_str()) != 0) std::exit(1);
        state.PauseTiming();
        std::filesystem::remove(name);
        state.ResumeTiming();
    }
    state.SetLabel(state.range(1) != 0 ? "cp and sync" : "cp");
    state.SetBytesProcessed(state.iterations() * state.range(0) << 20);
}
BENCHMARK(systemCopy)
    ->ArgsProduct({{64, 1024}, {0, 1}})
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime()
    ->Iterations(4);

} // namespace

} // namespace pelrath::bench
