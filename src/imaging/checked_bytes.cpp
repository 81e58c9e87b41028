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
    return static_cast<std::uint16_t>(littleEndian(slice(offset, 2)));
}

std::uint32_t CheckedBytes::longAt(std::uint64_t offset) const {
    return static_cast<std::uint32_t>(littleEndian(slice(offset, 4)));
}

} // namespace pelrath
