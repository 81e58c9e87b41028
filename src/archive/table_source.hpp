#pragma once

#include "platform/posix/files.hpp"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace pelrath {

/// Small records of a file read with few system calls: a miss reads ahead as long as the records lie one
/// behind another, and little more than the record where they are scattered.
class TableSource {
public:
    explicit TableSource(const InputFile& file) : file_(file) {}

    [[nodiscard]] std::uint64_t size() const { return file_.size(); }
    [[nodiscard]] bool contains(std::int64_t offset, std::int64_t length) const {
        const auto end = static_cast<std::int64_t>(size());
        return offset >= 0 && length >= 0 && offset <= end && length <= end - offset;
    }

    /// The bytes at a range that the file contains; valid until the next call.
    [[nodiscard]] std::span<const std::byte> at(std::int64_t offset, std::size_t length);

private:
    const InputFile& file_;
    std::vector<std::byte> window_;
    std::uint64_t start_ = 0;
};

} // namespace pelrath
