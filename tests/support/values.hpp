#pragma once

#include "controls/signal.hpp"
#include "platform/runtime_error.hpp"
#include "texture_bytes.hpp"

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
