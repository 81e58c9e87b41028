#pragma once

#include "platform/posix/large_blocks.hpp"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace pelrath {

/// Many lines of text in one block of memory, in the order of their arrival.
class LineStore {
public:
    [[nodiscard]] std::size_t count() const { return ends_.size(); }
    [[nodiscard]] std::string_view line(std::size_t index) const {
        const std::size_t start = index == 0 ? 0 : ends_[index - 1];
        return std::string_view{text_}.substr(start, ends_[index] - start);
    }

    void append(std::string_view line) {
        text_.append(line);
        ends_.push_back(text_.size());
    }
    /// The bytes of the line that came last.
    [[nodiscard]] std::span<char> lastLine() {
        const std::size_t start = ends_.size() < 2 ? 0 : ends_[ends_.size() - 2];
        return std::span{text_}.subspan(start);
    }
    /// Keeps the memory for the lines to come.
    void clear() {
        text_.clear();
        ends_.clear();
    }

private:
    std::basic_string<char, std::char_traits<char>, LargeBlocks<char>> text_;
    std::vector<std::size_t> ends_;
};

} // namespace pelrath
