#pragma once

#include "platform/files.hpp"

#include <cstddef>
#include <cstdint>

namespace pelrath {

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
