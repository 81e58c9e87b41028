#include "batch/collected_messages.hpp"

#include "imaging/library_error.hpp"
#include "platform/runtime_error.hpp"
#include "platform/text.hpp"

#include <new>
#include <stdexcept>
#include <utility>

namespace pelrath::batch {

// A paragraph that follows no full stop explains what stands before it.
std::string asOneLine(const std::string& text) {
    std::string line;
    bool broken = false;
    for (const char c : text) {
        const bool lineEnd = c == '\r' || c == '\n';
        if (!lineEnd && broken && !line.empty()) line += line.back() == '.' ? " " : ": ";
        if (!lineEnd && !(broken && c == ' ')) line += c;
        broken = lineEnd;
        while (lineEnd && line.ends_with(' ')) {
            line.pop_back();
        }
    }
    while (line.ends_with(' ') || line.ends_with('.')) {
        line.pop_back();
    }
    return visibleText(line);
}

BoxAnswer CollectedMessages::show(const std::string& text, const std::string& /*title*/, BoxIcon /*icon*/,
                                  BoxButtons buttons) {
    if (buttons == BoxButtons::OkCancel) return consent_ ? BoxAnswer::Ok : BoxAnswer::Cancel;
    lines_.push_back(asOneLine(text));
    return BoxAnswer::Ok;
}

std::vector<std::string> CollectedMessages::take() { return std::exchange(lines_, {}); }

std::string CollectedMessages::takeFirst() {
    const std::vector<std::string> lines = take();
    return lines.empty() ? std::string{"it was given up"} : lines.front();
}

bool CollectedMessages::attempt(const std::function<bool()>& work) try {
    return work();
} catch (const ImageLibraryError& error) {
    lines_.push_back(asOneLine(error.reason().empty() ? error.description() : error.reason()));
    return false;
} catch (const std::bad_alloc&) {
    lines_.emplace_back(errorDescription(ErrorNumber::OutOfMemory));
    return false;
} catch (const std::exception& error) {
    lines_.push_back(asOneLine(error.what()));
    return false;
}

} // namespace pelrath::batch
