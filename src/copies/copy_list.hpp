#pragma once

#include "batch/plan.hpp"
#include "controls/control.hpp"
#include "copies/found_copies.hpp"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace pelrath::copies {

enum class CopyState {
    Waiting,    ///< to be compared
    Looking,    ///< being compared
    Stopped,    ///< not compared: that was stopped
    Compared,   ///< `differences` are known
    OfAnother,  ///< its tables are not the archive's
    Unreadable, ///< it could not be compared
};

/// How a copy compares with the archive as it is.
struct CopyLook {
    CopyState state = CopyState::Waiting;
    int percent = 0;         ///< of it that has been compared
    batch::Plan differences; ///< the textures, each with the levels that are not as they are in the copy
    std::string reason;      ///< why it could not be compared: a sentence without its full stop
};

struct CopyRow {
    FoundCopy copy;
    CopyLook look;
};

/// The list of copies. Its click is raised by every change of the chosen row.
class CopyList : public Control {
public:
    Signal<> click;
    Signal<int> rowChanged; ///< what is known about that row has changed

    [[nodiscard]] int count() const { return static_cast<int>(rows_.size()); }
    [[nodiscard]] const CopyRow& row(int index) const { return rows_.at(static_cast<std::size_t>(index)); }
    /// -1 when none is chosen.
    [[nodiscard]] int chosenRow() const { return chosen_; }
    /// For who shows it: counts every fill().
    [[nodiscard]] std::uint64_t fillings() const { return fillings_; }

    /// Other rows, of which none is chosen.
    void fill(std::vector<FoundCopy> found) {
        rows_.clear();
        for (FoundCopy& copy : found) {
            rows_.push_back({std::move(copy), {}});
        }
        chosen_ = -1;
        ++fillings_;
        changed.emit();
        click.emit();
    }
    /// A row outside the list is ignored.
    void choose(int index) {
        if (index >= 0 && index < count() && assign(chosen_, index)) click.emit();
    }
    void setLook(int index, CopyLook look) {
        rows_.at(static_cast<std::size_t>(index)).look = std::move(look);
        rowChanged.emit(index);
    }

private:
    std::vector<CopyRow> rows_;
    int chosen_ = -1;
    std::uint64_t fillings_ = 0;
};

/// What is known about a copy, in a few words.
[[nodiscard]] std::string wordsOf(const CopyLook& look);

} // namespace pelrath::copies
