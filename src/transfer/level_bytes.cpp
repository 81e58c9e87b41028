#include "transfer/level_bytes.hpp"

#include "platform/posix/file_patch.hpp"

namespace pelrath {

namespace {

void require(const InputFile& file, std::uint64_t offset, std::uint64_t length) {
    if (offset > file.size() || length > file.size() - offset) throw SourceTooShort{file.path()};
}

} // namespace

void requireFileBytes(const std::string& path, std::int64_t position, std::int64_t size) {
    require(InputFile{path}, static_cast<std::uint64_t>(position - 1), static_cast<std::uint64_t>(size));
}

std::vector<std::byte> readFileBytes(const std::string& path, std::int64_t position, std::int64_t size) {
    return readFileBytes(InputFile{path}, position, size);
}

std::vector<std::byte> readFileBytes(const InputFile& file, std::int64_t position, std::int64_t size) {
    const auto offset = static_cast<std::uint64_t>(position - 1);
    const auto length = static_cast<std::uint64_t>(size);
    require(file, offset, length);
    std::vector<std::byte> bytes(static_cast<std::size_t>(length));
    file.readAt(offset, bytes);
    return bytes;
}

void writeArchiveBytes(const InputFile& archive, std::int64_t position, Bytes bytes) {
    overwrite(archive, static_cast<std::uint64_t>(position - 1), bytes);
}

} // namespace pelrath
