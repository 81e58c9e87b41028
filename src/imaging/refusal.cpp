#include "imaging/refusal.hpp"

#include "imaging/library_error.hpp"

#include <algorithm>

namespace pelrath {

void refuse(Refusal reason) { throw ImageLibraryError{static_cast<std::int32_t>(reason), "loadImage"}; }

void requireOneOf(std::initializer_list<std::uint32_t> allowed, std::uint32_t value, Refusal reason) {
    if (std::find(allowed.begin(), allowed.end(), value) == allowed.end()) refuse(reason);
}

Sides checkedSides(std::int64_t width, std::int64_t height) {
    if (!possibleSides(width, height)) refuse(Refusal::ImpossibleSides);
    return {static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height)};
}

} // namespace pelrath
