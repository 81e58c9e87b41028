#include "library_fixture.hpp"

namespace pelrath::test {
namespace {

/// What was called since the last look, with the numbers given, in hexadecimal; asking for the image's own
/// sides and form is left out.
std::string calls;
template <auto function>
std::string nameOf;

template <auto function>
struct Recorded;
template <class Result, class... Given, Result (*LibraryFunctions::*function)(Given...)>
struct Recorded<function> {
    static Result call(Given... given) {
        std::ostringstream said;
        said << std::hex << nameOf<function>;
        ((std::is_integral_v<Given> ? said << ',' << given : said), ...);
        if (!said.str().starts_with("ilGetInteger") || said.str().ends_with("de6")) calls += said.str() + ' ';
        return (imageLibrary().*function)(given...);
    }
};

/// The real library, writing down the calls of these functions under these names.
template <auto... functions>
LibraryFunctions recording(const std::string& names) {
    LibraryFunctions library = imageLibrary();
    std::istringstream words{names};
    ((words >> nameOf<functions>, library.*functions = Recorded<functions>::call), ...);
    return library;
}

TEST_F(LibraryTest, MakesTheCallsOfEachOperationInOrder) {
    using L = LibraryFunctions;
    const LibraryFunctions library = recording<
        &L::ilInit, &L::iluInit, &L::ilutRenderer, &L::ilutEnable, &L::ilGetError, &L::ilGetInteger,
        &L::ilSetInteger, &L::ilEnable, &L::ilDisable, &L::ilGenImages, &L::ilBindImage, &L::ilActiveMipmap,
        &L::ilLoad, &L::ilSaveImage, &L::ilSave, &L::ilConvertImage, &L::iluBuildMipmaps,
        &L::iluImageParameter, &L::iluScale>(
        "ilInit iluInit ilutRenderer ilutEnable ilGetError ilGetInteger ilSetInteger ilEnable ilDisable ilGenImages "
        "ilBindImage ilActiveMipmap ilLoad ilSaveImage ilSave ilConvertImage iluBuildMipmaps iluImageParameter iluScale");
    ImageLibraryFacade recorded{boxes, options, library};
    std::uint32_t image = 0;
    const auto load = [&](const char* name) { return recorded.loadImage(folder.file(name), image); };
    const auto choose = [&](std::int32_t type) {
        return recorded.setSaveImageOptions(type, options.imageType, options.extension);
    };
    const auto save = [&](const char* name, bool overwrite) {
        return recorded.saveImage(options.imageType, folder.file(name), overwrite);
    };
    const std::string start = "ilGenImages,1 ilGetError ilBindImage,IMAGE ilGetError ";
    const std::string levels = "ilActiveMipmap,1 ilActiveMipmap,1 ilBindImage,IMAGE ";
    options.buildMipmaps = true;
    static_cast<void>(folder.write("a.tga", bytesOf("000002 9*00 w4 w4 1800 48*00")));
    static_cast<void>(folder.write("a.x", ""));
    // In this order: what one leaves on the disk and in the options the next one takes up.
    const std::pair<std::function<bool()>, std::string> cases[] = {
        {[&] { return recorded.initImageLibrary(); },
         "ilInit iluInit ilutRenderer,0 ilutEnable,634 ilGetError ilutEnable,635 ilGetError "},
        {[&] { return !load("a.x"); }, start + "ilGetError "},
        {[&] { return load("a.tga"); }, start + "ilLoad,42d ilGetError "},
        {[&] { return recorded.scaleImage(8, 4, 4); },
         "ilGetInteger,de6 ilGetError iluImageParameter,2600,2605 ilGetError iluScale,8,4,1 "},
        {[&] { return recorded.scaleImage(8, 8, 9); },
         "ilGetInteger,de6 ilGetError ilGetError iluScale,8,8,1 "},
        {[&] { return recorded.scaleImage(4, 4, 7); },
         "ilGetInteger,de6 ilGetError iluImageParameter,2600,2608 ilGetError iluScale,4,4,1 "},
        // After a save the whole image is bound again, and the error stack must be empty. A chain's levels
        // are gone through after each step.
        {[&] { return choose(0) && save("a.bmp", true); },
         "ilConvertImage,80e0,1401 ilEnable,620 ilSaveImage ilBindImage,IMAGE ilGetError ilGetError "},
        {[&] { return choose(1) && save("b.tga", false); },
         "ilConvertImage,80e1,1401 ilDisable,620 ilSaveImage ilBindImage,IMAGE ilGetError ilGetError "},
        {[&] { return choose(2) && save("a.jpg", true); },
         "ilSetInteger,711,0 ilConvertImage,1907,1401 ilEnable,620 ilSaveImage ilBindImage,IMAGE ilGetError ilGetError "},
        {[&] { return choose(3); }, "ilSetInteger,705,706 ilGetError "},
        {[&] { return choose(4); }, "ilSetInteger,705,70a ilGetError "},
        {[&] { return save("a.dds", true); },
         "ilConvertImage,1908,1401 iluBuildMipmaps " + levels +
             "ilEnable,620 ilSaveImage ilBindImage,IMAGE ilGetError ilGetError " + levels},
        {[&] { return save("a.x", true); },
         "ilConvertImage,1908,1401 iluBuildMipmaps " + levels +
             "ilEnable,620 ilSave,437 ilBindImage,IMAGE ilGetError ilGetError " + levels},
        {[&] { return load("a.bmp"); }, start + "ilLoad,420 ilGetError "},
        {[&] { return load("a.jpg"); }, start + "ilLoad,425 ilGetError "},
        {[&] { return load("a.dds"); }, start + "ilLoad,437 ilGetError "},
    };
    for (auto [operation, expected] : cases) {
        calls.clear();
        EXPECT_TRUE(operation()) << expected;
        for (auto at = expected.find("IMAGE"); at != std::string::npos; at = expected.find("IMAGE")) {
            expected.replace(at, 5, (std::ostringstream{} << std::hex << image).str());
        }
        EXPECT_EQ(calls, expected);
    }
    expectBox("ilLoadImage Error Number: 0 -> IL_NO_ERROR");
}

} // namespace
} // namespace pelrath::test
