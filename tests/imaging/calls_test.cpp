#include "library_fixture.hpp"

namespace pelrath::test {
namespace {

/// What was called since the last look, with the numbers given, in hexadecimal.
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
        calls += said.str() + ' ';
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

// What the images loaded and the files saved do not show.
TEST_F(LibraryTest, MakesTheCallsOfEachOperationInOrder) {
    using L = LibraryFunctions;
    const LibraryFunctions library = recording<&L::ilInit, &L::iluInit, &L::ilutRenderer, &L::ilutEnable,
                                               &L::ilGetError, &L::ilSetInteger, &L::ilEnable,
                                               &L::ilConvertImage, &L::iluImageParameter, &L::iluScale>(
        "ilInit iluInit ilutRenderer ilutEnable ilGetError ilSetInteger ilEnable ilConvertImage iluImageParameter iluScale");
    ImageLibraryFacade recorded{boxes, options, library};
    images.bind(images.generate());
    // In this order: each works on what the one before has left.
    const std::pair<std::function<bool()>, std::string> cases[] = {
        {[&] { return recorded.initImageLibrary(); },
         "ilInit iluInit ilutRenderer,0 ilutEnable,634 ilGetError ilutEnable,635 ilGetError "},
        {[&] { return recorded.scaleImage(8, 4, 4); },
         "ilGetError iluImageParameter,2600,2605 ilGetError iluScale,8,4,1 "},
        {[&] { return recorded.scaleImage(8, 8, 9); }, "ilGetError ilGetError iluScale,8,8,1 "},
        {[&] {
             return recorded.setSaveImageOptions(2, options.imageType, options.extension) &&
                    recorded.saveImage(options.imageType, folder.file("a.jpg"), true);
         },
         "ilSetInteger,711,0 ilConvertImage,1907,1401 ilEnable,620 ilGetError ilGetError "},
    };
    for (const auto& [operation, expected] : cases) {
        calls.clear();
        EXPECT_TRUE(operation()) << expected;
        EXPECT_EQ(calls, expected);
    }
}

} // namespace
} // namespace pelrath::test
