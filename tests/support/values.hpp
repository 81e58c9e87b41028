#pragma once

#include "controls/signal.hpp"
#include "platform/runtime_error.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <sstream>
#include <string>

namespace pelrath::test {

/// Several values as one text, to be compared together: row(1, "a", true) is "1, a, true".
template <class... Values>
std::string row(const Values&... values) {
    std::ostringstream text;
    text << std::boolalpha;
    const char* gap = "";
    ((text << gap << values, gap = ", "), ...);
    return text.str();
}

/// The failure that the work ends with; one of the number 0 if it does not fail.
template <class Work>
RuntimeError failureOf(Work work) {
    try {
        work();
    } catch (const RuntimeError& error) {
        return error;
    }
    return {0, "", "no failure"};
}

inline std::string little(std::int64_t value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) {
        text += static_cast<char>(value >> (8 * i));
    }
    return text;
}

/// Bytes from words: hexadecimal ones, N*XX that repeats some, wN and dN for 16-bit and 32-bit little-endian
/// numbers.
inline std::string bytesOf(const std::string& notation) {
    std::string bytes;
    std::istringstream words{notation};
    for (std::string word; words >> word;) {
        const std::size_t star = word.find('*');
        const std::size_t times = star == std::string::npos ? 1 : std::stoul(word);
        if (word[0] == 'w' || word[0] == 'd') {
            bytes += little(std::stoll(word.substr(1)), word[0] == 'w' ? 2 : 4);
            continue;
        }
        std::string once;
        for (std::size_t i = star == std::string::npos ? 0 : star + 1; i < word.size(); i += 2) {
            once += static_cast<char>(std::stoi(word.substr(i, 2), nullptr, 16));
        }
        for (std::size_t i = 0; i < times; ++i) {
            bytes += once;
        }
    }
    return bytes;
}

/// A DDS file as short as readers take it: magic, sides and type in the header, and its blocks.
inline std::string ddsFile(const std::string& fourCC, std::uint32_t width, std::uint32_t height,
                           const std::string& blocks) {
    return "DDS " + std::string(8, '\0') + little(height, 4) + little(width, 4) + std::string(64, '\0') +
           fourCC + std::string(40, '\0') + blocks;
}

/// DXT1 blocks of one colour, given as 5-6-5.
inline std::string plainBlocks(std::uint32_t width, std::uint32_t height, std::uint16_t color) {
    std::string blocks;
    for (std::uint32_t i = 0; i < ((width + 3) / 4) * ((height + 3) / 4); ++i) {
        blocks += little(color, 8);
    }
    return blocks;
}

/// The greatest difference between two bytes in the same place; 256 for different lengths.
inline int difference(const std::string& a, const std::string& b) {
    int most = a.size() == b.size() ? 0 : 256;
    for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i) {
        most = std::max(most, std::abs(static_cast<unsigned char>(a[i]) - static_cast<unsigned char>(b[i])));
    }
    return most;
}

/// What happened, in order.
class Log {
public:
    void add(const std::string& what) { happened_ += (happened_.empty() ? "" : " ") + what; }
    void watch(Signal<>& signal, const std::string& name) {
        connections_.push_back(signal.connect([this, name] { add(name); }));
    }
    /// Since the last call.
    std::string take() { return std::exchange(happened_, {}); }

private:
    std::string happened_;
    Connections connections_;
};

} // namespace pelrath::test
