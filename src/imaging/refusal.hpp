#pragma once

#include <cstdint>
#include <initializer_list>

namespace pelrath {

/// Why a file is kept from the library, as the code that the library has for it.
enum class Refusal : std::int32_t {
    OutOfMemory = 0x0502,
    KindNotSupported = 0x0503,
    ImpossibleValue = 0x0507,
    NotThisKind = 0x0508,
    ImpossibleSides = 0x0511,
    Truncated = 0x0512,
};

/// Raises the ImageLibraryError of a refused file.
[[noreturn]] void refuse(Refusal reason);

/// Refuses a file in which `value` is none of those allowed.
void requireOneOf(std::initializer_list<std::uint32_t> allowed, std::uint32_t value, Refusal reason);

/// Sides of a picture, in pixels.
struct Sides {
    std::uint32_t width = 0;
    std::uint32_t height = 0;

    [[nodiscard]] std::uint64_t pixels() const { return std::uint64_t{width} * height; }
};

/// The longest side: the first of 15 levels down to 1 pixel.
inline constexpr std::uint32_t longestSide = 16384;
/// The most pixels: half a gigabyte in the library, and up to two while it converts, scales and saves. A
/// picture of 16384 x 16384, which is refused for that, would take twice as much.
inline constexpr std::uint64_t mostPixels = std::uint64_t{1} << 27;

[[nodiscard]] constexpr bool possibleSides(std::int64_t width, std::int64_t height) {
    return width >= 1 && height >= 1 && width <= longestSide && height <= longestSide &&
           width * height <= static_cast<std::int64_t>(mostPixels);
}

/// The sides, or a refusal.
[[nodiscard]] Sides checkedSides(std::int64_t width, std::int64_t height);

} // namespace pelrath
