#pragma once

namespace pelrath {

/// What ends each line of a summary box.
inline constexpr const char* lineBreak = "\r\n";

} // namespace pelrath
