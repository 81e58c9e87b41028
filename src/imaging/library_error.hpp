#pragma once

#include "platform/runtime_error.hpp"

#include <cstdint>
#include <string>

namespace pelrath {

/// The number that every failure of the image library carries, whatever its code.
inline constexpr int IMAGE_LIBRARY_ERROR = -2147220991;

/// A failure that the image library reported, or that was found in a file before the library saw it.
class ImageLibraryError : public RuntimeError {
public:
    /// `code` is one of the library's error codes; 0 where a call failed without leaving one. `reason` is a
    /// sentence without its full stop for what the code alone does not tell.
    ImageLibraryError(std::int32_t code, std::string source, std::string reason = {});

    [[nodiscard]] std::int32_t code() const { return code_; }
    [[nodiscard]] const std::string& reason() const { return reason_; }

private:
    std::int32_t code_;
    std::string reason_;
};

} // namespace pelrath
