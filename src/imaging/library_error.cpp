#include "imaging/library_error.hpp"

#include "imaging/error_names.hpp"

#include <utility>

namespace pelrath {

ImageLibraryError::ImageLibraryError(std::int32_t code, std::string source, std::string reason)
    : RuntimeError(IMAGE_LIBRARY_ERROR, std::move(source), libraryFailureText("Image library error ", code)),
      code_(code), reason_(std::move(reason)) {}

} // namespace pelrath
