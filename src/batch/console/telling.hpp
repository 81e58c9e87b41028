#pragma once

#include "batch/console/console.hpp"
#include "batch/report_lines.hpp"
#include "platform/busy_sign.hpp"

#include <string>
#include <vector>

namespace pelrath::batch {

/// What the console program says: results as they come, messages with the program's name, progress where
/// somebody looks.
class Telling : public RunWatcher, public BusySign {
public:
    Telling(const Console& console, bool quiet, DoneLine line)
        : console_(console), quiet_(quiet), line_(line) {}
    ~Telling() override { clear(); }
    Telling(const Telling&) = delete;
    Telling& operator=(const Telling&) = delete;

    bool stopIsAsked() override { return console_.stopIsAsked(); }
    void begins(const std::string& texture, std::size_t number, std::size_t count) override;
    void ended(const TextureReport& report) override;
    void show(const std::string& what, std::uint64_t done, std::uint64_t total) override;
    void clear() override;

    /// One line on the error output.
    void message(const std::string& text);
    /// One line on the output, unless it is to be quiet.
    void result(const std::string& text);
    /// What was left out or refused of a texture, and why.
    void reasons(const TextureReport& report);
    /// The counts of a run, with these words for what is done; and its exit code.
    int conclude(const Report& report, const std::string& doneWords);
    /// The exit code once these, which no texture's name is or matches, are told as well.
    int missing(const std::vector<std::string>& unmatched, const std::string& archive, int exitCode);

private:
    void showProgress(const std::string& text);

    const Console& console_;
    bool quiet_;
    DoneLine line_;
    bool shown_ = false; ///< a line of progress
};

} // namespace pelrath::batch
