#pragma once

#include "platform/message_boxes.hpp"

#include <functional>
#include <string>
#include <vector>

namespace pelrath::batch {

/// Message boxes that nobody has to answer: what they would say is kept, one line each, and questions are
/// answered by what was agreed on beforehand.
class CollectedMessages : public MessageBoxes {
public:
    /// `consent`: questions are answered with Ok, otherwise with Cancel.
    explicit CollectedMessages(bool consent = false) : consent_(consent) {}

    BoxAnswer show(const std::string& text, const std::string& title, BoxIcon icon,
                   BoxButtons buttons) override;

    /// What was said since the last call.
    [[nodiscard]] std::vector<std::string> take();
    /// The first of that, which is the cause of the rest.
    [[nodiscard]] std::string takeFirst();

    /// Runs work that answers whether it succeeded. What fails is kept as well and gives false.
    bool attempt(const std::function<bool()>& work);

private:
    bool consent_;
    std::vector<std::string> lines_;
};

/// A message as one line, without its last full stop; what would show nothing is U+FFFD.
[[nodiscard]] std::string asOneLine(const std::string& text);

} // namespace pelrath::batch
