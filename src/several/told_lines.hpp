#pragma once

#include "batch/report_lines.hpp"
#include "controls/control.hpp"

#include <memory>
#include <string>
#include <vector>

namespace pelrath::several {

/// A line about files of a plan or a report.
struct ToldLine {
    std::string text;
    bool isProblem = false; ///< something that is not going to be done, or was not
    bool operator==(const ToldLine&) const = default;
};

using ToldLines = std::vector<ToldLine>;

/// The report's lines: first what is not done, and why, then what is.
[[nodiscard]] ToldLines linesOf(const batch::Report& report, batch::DoneLine doneLine);

/// A list of such lines to be looked at; they are shared, as there can be very many.
class ToldList : public Control {
public:
    [[nodiscard]] const std::shared_ptr<const ToldLines>& lines() const { return lines_; }
    void setLines(ToldLines lines) {
        (void)assign(lines_, std::make_shared<const ToldLines>(std::move(lines)));
    }

private:
    std::shared_ptr<const ToldLines> lines_ = std::make_shared<const ToldLines>();
};

/// How far a run has come.
class ProgressBar : public Control {
public:
    [[nodiscard]] std::size_t done() const { return done_; }
    [[nodiscard]] std::size_t total() const { return total_; }
    void set(std::size_t done, std::size_t total) {
        assign(done_, done);
        assign(total_, total);
    }

private:
    std::size_t done_ = 0;
    std::size_t total_ = 0;
};

} // namespace pelrath::several
