#include "imaging/image_library_facade.hpp"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

/// A file of the kind FUZZED_EXTENSION names goes the whole way: load, conversion, scaling, deletion. Finding
/// nothing wrong means that what was let through to the library does it no harm.
namespace {

class SilentBoxes : public pelrath::MessageBoxes {
public:
    pelrath::BoxAnswer show(const std::string&, const std::string&, pelrath::BoxIcon,
                            pelrath::BoxButtons) override {
        return pelrath::BoxAnswer::Ok;
    }
};

struct Library {
    Library() {
        facade.initImageLibrary();
        std::string pattern = std::filesystem::temp_directory_path() / "pelrath-fuzz-XXXXXX";
        path = std::string{mkdtemp(pattern.data())} + "/input" FUZZED_EXTENSION;
    }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
    ~Library() { std::filesystem::remove_all(std::filesystem::path{path}.parent_path()); }

    SilentBoxes boxes;
    pelrath::SaveImageOptions options;
    pelrath::ImageLibraryFacade facade{boxes, options};
    pelrath::LibraryImages images;
    std::string path;
    unsigned long accepted = 0;
    unsigned long seen = 0;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static Library library;
    std::ofstream{library.path, std::ios::binary}.write(reinterpret_cast<const char*>(data),
                                                        static_cast<std::streamsize>(size));
    std::uint32_t image = 0;
    if (library.facade.loadImage(library.path, image)) {
        ++library.accepted;
        constexpr std::uint16_t bgra = 0x80E1;
        constexpr std::int32_t bytes = 0x1401;
        constexpr std::int16_t nearest = 0; // the others take seconds here, where each pixel is instrumented
        if (!library.facade.convertImage(bgra, bytes) || !library.facade.scaleImage(7, 5, nearest))
            std::abort();
    }
    library.images.remove(image);
    if (library.images.readErrorCode() != 0) std::abort();
    if (++library.seen % 50000 == 0)
        std::fprintf(stderr, "%lu of %lu accepted\n", library.accepted, library.seen);
    return 0;
}
