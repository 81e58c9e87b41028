#pragma once

#include "platform/posix/files.hpp"

#include <cstddef>
#include <cstdint>

namespace pelrath {

/// The number that up to 8 bytes hold, the lowest one first.
[[nodiscard]] constexpr std::uint64_t littleEndian(Bytes bytes) {
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        value |= std::to_integer<std::uint64_t>(bytes[i]) << (8 * i);
    }
    return value;
}

/// Puts a 32-bit number at `offset`, the lowest byte first; there must be room for it.
constexpr void writeLong(std::span<std::byte> into, std::size_t offset, std::uint32_t value) {
    for (std::size_t i = 0; i < 4; ++i) {
        into[offset + i] = static_cast<std::byte>(value >> (8 * i));
    }
}

/// True when any of the items, `itemBytes` each, has a last byte that is not 0.
[[nodiscard]] constexpr bool anyLastByteSet(Bytes items, std::size_t itemBytes) {
    for (std::size_t at = itemBytes - 1; at < items.size(); at += itemBytes) {
        if (items[at] != std::byte{0}) return true;
    }
    return false;
}

/// A file's bytes, read only where there are any. Numbers are little-endian; every read past the end fails
/// with an ImageLibraryError that says that the file cannot be read (IL_FILE_READ_ERROR).
class CheckedBytes {
public:
    explicit CheckedBytes(Bytes bytes) : bytes_(bytes) {}

    [[nodiscard]] std::uint64_t size() const { return bytes_.size(); }
    [[nodiscard]] std::uint8_t byteAt(std::uint64_t offset) const;
    [[nodiscard]] std::uint16_t wordAt(std::uint64_t offset) const;
    [[nodiscard]] std::uint32_t longAt(std::uint64_t offset) const;
    [[nodiscard]] Bytes slice(std::uint64_t offset, std::uint64_t length) const;

private:
    Bytes bytes_;
};

} // namespace pelrath
