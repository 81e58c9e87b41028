#include "archive/table_source.hpp"

#include <algorithm>

namespace pelrath {

namespace {
constexpr std::uint64_t nearRead = 512; // a descriptor with a table of usual length
constexpr std::uint64_t readAhead = 65536;
} // namespace

std::span<const std::byte> TableSource::at(std::int64_t offset, std::size_t length) {
    const auto from = static_cast<std::uint64_t>(offset);
    const std::uint64_t end = start_ + window_.size();
    if (from < start_ || from + length > end) {
        const bool sequential = from >= start_ && from <= end + nearRead;
        const std::uint64_t wanted = std::max<std::uint64_t>(length, sequential ? readAhead : nearRead);
        window_.resize(static_cast<std::size_t>(std::min(wanted, size() - from)));
        file_.readAt(from, window_);
        start_ = from;
    }
    return std::span<const std::byte>{window_}.subspan(static_cast<std::size_t>(from - start_), length);
}

} // namespace pelrath
