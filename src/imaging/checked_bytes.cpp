#include "imaging/checked_bytes.hpp"

#include "imaging/refusal.hpp"

namespace pelrath {

Bytes CheckedBytes::slice(std::uint64_t offset, std::uint64_t length) const {
    if (offset > bytes_.size() || length > bytes_.size() - offset) refuse(Refusal::Truncated);
    return bytes_.subspan(static_cast<std::size_t>(offset), static_cast<std::size_t>(length));
}

std::uint8_t CheckedBytes::byteAt(std::uint64_t offset) const {
    return std::to_integer<std::uint8_t>(slice(offset, 1)[0]);
}

std::uint16_t CheckedBytes::wordAt(std::uint64_t offset) const {
    const Bytes two = slice(offset, 2);
    return static_cast<std::uint16_t>(std::to_integer<unsigned>(two[0]) | std::to_integer<unsigned>(two[1])
                                                                              << 8);
}

std::uint32_t CheckedBytes::longAt(std::uint64_t offset) const {
    const Bytes four = slice(offset, 4);
    return std::to_integer<std::uint32_t>(four[0]) | std::to_integer<std::uint32_t>(four[1]) << 8 |
           std::to_integer<std::uint32_t>(four[2]) << 16 | std::to_integer<std::uint32_t>(four[3]) << 24;
}

} // namespace pelrath
