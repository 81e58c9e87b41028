#pragma once

#include "archive/dds_export.hpp"
#include "platform/posix/files.hpp"

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

/// Bytes of levels in files. Positions are 1-based.
namespace pelrath {

/// Where a DDS file's level data begins.
inline constexpr std::int64_t firstLevelPosition = sizeof(DdsHeader) + 1;

/// A file ends before the level data that is to be read from it.
class SourceTooShort : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// SourceTooShort where a file does not have so many bytes from the position on.
void requireFileBytes(const std::string& path, std::int64_t position, std::int64_t size);

/// `size` bytes from the position of a file. SourceTooShort where it does not have them.
[[nodiscard]] std::vector<std::byte> readFileBytes(const InputFile& file, std::int64_t position,
                                                   std::int64_t size);
/// The same of a file that is opened for this one read.
[[nodiscard]] std::vector<std::byte> readFileBytes(const std::string& path, std::int64_t position,
                                                   std::int64_t size);

/// Writes the bytes over those at the position of the archive, as overwrite() does: flushOverwritten() is
/// still to come. Never changes the archive's length.
void writeArchiveBytes(const InputFile& archive, std::int64_t position, Bytes bytes);

} // namespace pelrath
