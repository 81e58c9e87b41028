#pragma once

namespace pelrath {

/// The program's version as its user reads it, "1.0-1"; the build's own.
extern const char* const programVersion;

} // namespace pelrath
