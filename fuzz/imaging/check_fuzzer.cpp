#include "imaging/library_error.hpp"
#include "imaging/loadable_file.hpp"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>

/// The checks of one kind of file (FUZZED_KIND) alone: what they let through must be what it says it is, and
/// must pass them again unchanged.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto bytes = std::as_bytes(std::span{data, size});
    try {
        const pelrath::LoadableFile file =
            pelrath::makeLoadable(pelrath::FileKind::FUZZED_KIND, {bytes.begin(), bytes.end()});
        if (!pelrath::possibleSides(file.sides.width, file.sides.height)) std::abort();
        try {
            if (pelrath::makeLoadable(file.readAs, file.bytes).bytes != file.bytes) std::abort();
        } catch (const pelrath::ImageLibraryError&) {
            std::abort();
        }
    } catch (const pelrath::ImageLibraryError&) {
        return 0;
    }
    return 0;
}
