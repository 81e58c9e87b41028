#include "inspection/finding.hpp"

namespace pelrath::inspection {

std::string textOf(const std::vector<Finding>& findings) {
    std::string text;
    for (const auto& [grade, word] : {std::pair{Grade::Refused, "Cannot be inserted: "},
                                      {Grade::Note, "To note: "},
                                      {Grade::Well, "Well: "}}) {
        for (const Finding& finding : findings) {
            if (finding.grade == grade) text += word + finding.text + "\r\n";
        }
    }
    return text;
}

} // namespace pelrath::inspection
