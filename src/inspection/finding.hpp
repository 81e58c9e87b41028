#pragma once

#include <string>
#include <vector>

/// A look at an insertion before it is done.
namespace pelrath::inspection {

enum class Grade {
    Well,    ///< as it should be
    Note,    ///< will be done, and may not be what is wanted
    Refused, ///< keeps the file from being inserted
};

struct Finding {
    Grade grade;
    std::string text; ///< whole sentences
};

/// The findings as a text, the gravest first, a line each.
[[nodiscard]] std::string textOf(const std::vector<Finding>& findings);

} // namespace pelrath::inspection
