#pragma once

#include <cstdlib>
#include <iostream>
#include <string_view>

namespace pelrath::fuzz {

/// What must hold whatever the input is: an abort is a finding.
inline void require(bool holds, std::string_view promise) {
    if (holds) return;
    std::cerr << "broken: " << promise << std::endl;
    std::abort();
}

} // namespace pelrath::fuzz
