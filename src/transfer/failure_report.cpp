#include "transfer/failure_report.hpp"

#include "imaging/error_names.hpp"
#include "imaging/library_error.hpp"
#include "platform/runtime_error.hpp"

#include <new>

namespace pelrath {

namespace {

std::string textOf(const FailureWords& words, const RuntimeError& error) {
    return words.ofOthers + std::to_string(error.number()) + " " + error.description();
}

} // namespace

bool attempt(MessageBoxes& boxes, const FailureWords& words, const std::function<void()>& work) try {
    work();
    return true;
} catch (const ImageLibraryError& error) {
    const std::string text = libraryFailureText(words.ofLibrary, error.code());
    boxes.critical(error.reason().empty() ? text : text + "\r\n\r\n" + error.reason() + ".", programTitle);
    return false;
} catch (const RuntimeError& error) {
    boxes.critical(textOf(words, error), programTitle);
    return false;
} catch (const std::bad_alloc&) {
    boxes.critical(textOf(words, makeError(ErrorNumber::OutOfMemory, "attempt")), programTitle);
    return false;
}

} // namespace pelrath
