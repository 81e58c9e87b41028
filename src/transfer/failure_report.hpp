#pragma once

#include "platform/message_boxes.hpp"

#include <functional>

namespace pelrath {

/// How a failure of an operation begins: one of the image library, or any other.
struct FailureWords {
    const char* ofLibrary; ///< before the library's code and its name
    const char* ofOthers;  ///< before the error's number and description
};

/// Runs the work. A failure is told in a critical message and gives false.
bool attempt(MessageBoxes& boxes, const FailureWords& words, const std::function<void()>& work);

} // namespace pelrath
