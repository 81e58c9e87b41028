#include "imaging/error_names.hpp"
#include "imaging/library_error.hpp"
#include "imaging/long_work.hpp"
#include "library_fixture.hpp"

#include <future>
#include <thread>

namespace pelrath::test {
namespace {

using Facade = LibraryTest;

TEST_F(Facade, NamesTheLibrarysCodes) {
    const char* unknown = "Error Type not found !";
    const std::pair<std::int32_t, std::string> names[] = {
        {0, "IL_NO_ERROR"}, {1280, unknown}, {1281, "IL_INVALID_ENUM "}, {1298, "IL_FILE_READ_ERROR "},
        {1299, unknown},    {-1, unknown},   {0x10501, unknown},         {1535, "IL_UNKNOWN_ERROR "}};
    for (const auto& [code, name] : names) {
        EXPECT_EQ(libraryFailureText("Number: ", code), "Number: " + std::to_string(code) + " -> " + name);
    }
}

TEST_F(Facade, WantsVersion160OfEveryPart) {
    static std::array<std::int32_t, 3> versions;
    LibraryFunctions library = imageLibrary();
    library.ilGetInteger = [](std::uint32_t) { return versions[0]; };
    library.iluGetInteger = [](std::uint32_t) { return versions[1]; };
    library.ilutGetInteger = [](std::uint32_t) { return versions[2]; };
    ImageLibraryFacade old{boxes, options, library};
    EXPECT_TRUE(facade.checkImageLibraryVersion()) << "the installed library";
    for (std::int32_t& part : versions) {
        versions = {160, 160, 160};
        EXPECT_TRUE(old.checkImageLibraryVersion());
        part = 159;
        EXPECT_FALSE(old.checkImageLibraryVersion());
        boxes.expect({"Invalid Graphic Image Library version", "Devil version check", BoxIcon::Critical});
    }
}

TEST_F(Facade, StartsEveryPartInOrderAndLeavesTheReportOfAFailureToItsCaller) {
    static std::string calls;
    static std::uint32_t failingMode;
    LibraryFunctions library = libraryWithCode();
    library.ilInit = [] { calls += "ilInit ", imageLibrary().ilInit(); };
    library.iluInit = [] { calls += "iluInit ", imageLibrary().iluInit(); };
    library.ilutRenderer = [](std::uint32_t renderer) {
        return calls += "renderer " + row(renderer) + " ", imageLibrary().ilutRenderer(renderer);
    };
    library.ilutEnable = [](std::uint32_t mode) {
        if (mode == failingMode) pendingCode = 1289;
        return calls += "mode " + row(mode) + " ", imageLibrary().ilutEnable(mode);
    };
    ImageLibraryFacade failing{boxes, options, library};
    for (const auto& [mode, called] : {std::pair{1588, "mode 1588 "}, {1589, "mode 1588 mode 1589 "}}) {
        failingMode = static_cast<std::uint32_t>(mode), calls.clear();
        EXPECT_EQ(failureOf([&] { failing.initImageLibrary(); }).number(), -2147220991);
        EXPECT_EQ(calls, row("ilInit iluInit renderer 0 ") + called);
        EXPECT_EQ(failing.lastErrorCode(), 1289);
    }
    images.shutDown();
    EXPECT_TRUE(facade.initImageLibrary()) << "again after a shutdown";
    EXPECT_EQ(images.readErrorCode(), 0);
}

TEST_F(Facade, SetsTheOptionsOfEachOutput) {
    // The output's index, its type, extension, pixel format and trace.
    const std::tuple<std::int32_t, std::int32_t, const char*, std::uint16_t, std::string> cases[] = {
        {-1, 0, "", 0, ""},
        {0, 0x0420, ".bmp", 0x80E0, ""},
        {1, 0x042D, ".tga", 0x80E1, ""},
        {2, 0x0425, ".jpg", 0x1907, ""},
        {3, 0x0437, ".dds", 0x1908, "Setting DXT1 format done."},
        {4, 0x0437, ".dds", 0x1908, "Setting DXT5 format done."},
        {5, 0, "", 0, ""},
    };
    for (const auto& [index, imageType, extension, convertFormat, trace] : cases) {
        options = {};
        EXPECT_TRUE(facade.setSaveImageOptions(index, options.imageType, options.extension)) << index;
        EXPECT_EQ(row(options.imageType, options.extension, options.convertFormat, options.convertType),
                  row(imageType, extension, convertFormat, imageType == 0 ? 0 : 0x1401));
        expectLines(trace.empty() ? std::vector<std::string>{} : std::vector{trace});
    }
    pendingCode = 1285;
    ImageLibraryFacade failing{boxes, options, libraryWithCode()};
    EXPECT_FALSE(failing.setSaveImageOptions(3, options.imageType, options.extension));
    expectBox("setSaveImageOptions Error Number: 1285 -> IL_INVALID_VALUE ");
}

TEST_F(Facade, TracesAndReportsWhatCannotBeSwitchedOrConverted) {
    images.bind(images.generate());
    EXPECT_FALSE(facade.setLibraryFlag(0x9999, false));
    expectBox("ilEnable/Disable Error Number: 1281 -> IL_INVALID_ENUM ");
    EXPECT_FALSE(facade.convertImage(0x1908, 0x7777));
    expectBox("ilConvertImage Error Number: 1284 -> IL_INTERNAL_ERROR ");
    expectLines({"ilDisable Error Number: 1281 -> IL_INVALID_ENUM ",
                 "ilConvertImage Error Number: 1284 -> IL_INTERNAL_ERROR "});
}

TEST_F(Facade, ScalesToTheSidesAskedFor) {
    std::uint32_t image = 0;
    ASSERT_TRUE(facade.loadImage(folder.write("x.tga", bytesOf("000002 9*00 w4 w2 1800 24*77")), image));
    const std::string refused = "ilScaleImage Error Number: 1297 -> IL_BAD_DIMENSIONS ";
    const std::tuple<std::int32_t, std::int32_t, std::string> cases[] = {
        {9, 6, "Image scaled to :9x6"}, {0, 1, "Image scaled to :0x1"}, {-1, 1, refused}, {16385, 1, refused},
        {16384, 16384, refused},        {3, 2, "Image scaled to :3x2"}};
    for (const auto& [width, height, trace] : cases) {
        EXPECT_EQ(facade.scaleImage(width, height, 2), trace != refused) << width;
        expectLines({"Scale Filter set to : ", trace});
        if (trace == refused) expectBox(refused, row(width) + " x " + row(height));
    }
    ASSERT_TRUE(chooseOutput(OutputFileType::Bmp));
    ASSERT_TRUE(facade.saveImage(options.imageType, folder.file("scaled.bmp"), true));
    EXPECT_EQ(folder.read("scaled.bmp").substr(18, 8), bytesOf("d3 d2"));
}

TEST_F(Facade, ScalesOnWhenTheLibraryGivesNoReason) {
    LibraryFunctions library = libraryWithCode();
    static std::vector<std::uint32_t> filtersSet;
    library.iluImageParameter = [](std::uint32_t parameter, std::uint32_t value) {
        if (parameter == 0x2600) filtersSet.push_back(value);
    };
    library.iluScale = [](std::uint32_t, std::uint32_t, std::uint32_t) { return std::uint8_t{0}; };
    pendingCode = 0;
    ImageLibraryFacade failing{boxes, options, library};
    const std::uint32_t nearest = 0x2601, before = 0x2603;
    imageLibrary().iluImageParameter(0x2600, before);
    for (std::int16_t filter = -1; filter < 10; ++filter) {
        EXPECT_TRUE(failing.scaleImage(2, 2, filter));
        // The one asked for; the only safe one while the library scales; the one that was in force.
        std::vector<std::uint32_t> expected{nearest, before};
        if (filter >= 0 && filter < 9)
            expected.insert(expected.begin(), nearest + static_cast<std::uint32_t>(filter));
        EXPECT_EQ(std::exchange(filtersSet, {}), expected) << filter;
    }
    library.iluScale = [](std::uint32_t, std::uint32_t, std::uint32_t) {
        return pendingCode = 1286, std::uint8_t{0};
    };
    EXPECT_FALSE((ImageLibraryFacade{boxes, options, library}.scaleImage(2, 2, 0)));
    expectBox("ilScaleImage Error Number: 1286 -> IL_ILLEGAL_OPERATION ");
}

struct OneSign : BusySign {
    void show(const std::string& what, std::uint64_t /*done*/, std::uint64_t /*total*/) override {
        if (seen.empty()) shown.set_value();
        seen = what;
    }
    void clear() override { seen += " cleared"; }
    std::promise<void> shown;
    std::string seen;
};

TEST(LongWork, ShowsItsSignWhileItGoesOnAndHandsOutWhatItRaises) {
    OneSign sign;
    LongWork work;
    work.showBy(&sign, "Reading");
    constexpr std::uint64_t much = 1U << 20;
    work.run(much, [&] {
        const auto here = std::this_thread::get_id();
        work.run(much,
                 [&] { EXPECT_EQ(std::this_thread::get_id(), here) << "signs are shown from one thread"; });
    });
    const auto waiting = [&] {
        const bool seen =
            sign.shown.get_future().wait_for(std::chrono::seconds{60}) == std::future_status::ready;
        throw makeError(seen ? ErrorNumber::DiskFull : ErrorNumber::InvalidCall, "work");
    };
    EXPECT_EQ(failureOf([&] { work.run(much, waiting); }).number(), 61);
    work.showBy(nullptr);
    EXPECT_EQ(sign.seen, "Reading cleared");
    for (const std::size_t count : {0U, 1U, 7U, 1000U}) {
        std::vector<int> done(count);
        onAllCores(count, 3, [&](std::size_t first, std::size_t end) {
            std::for_each(done.data() + first, done.data() + end, [](int& each) { ++each; });
        });
        EXPECT_EQ(done, std::vector<int>(count, 1));
    }
}

} // namespace
} // namespace pelrath::test
