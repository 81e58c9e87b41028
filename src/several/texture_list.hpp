#pragma once

#include "archive/catalogue.hpp"
#include "controls/control.hpp"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pelrath::several {

/// The textures of an archive, each with a check mark, of which a filter shows some. Rows are those shown.
class TextureList : public Control {
public:
    Signal<> marked; ///< check marks have changed

    /// The columns that a row has.
    enum Column { Name, Sides, Type, Levels };
    static constexpr int columns = 4;

    /// Shows all textures of an archive, which is to live as long as they are shown, with no mark.
    void fill(const CddsArchive& archive);
    /// Shows the textures whose names contain this text; in it * stands for any characters and ? for any one.
    /// Capitals do not matter, nor do blanks at its ends.
    void filter(std::string_view text);

    [[nodiscard]] int count() const { return static_cast<int>(shown_.size()); }
    [[nodiscard]] std::size_t countOfAll() const { return checked_.size(); }
    [[nodiscard]] std::string text(int row, Column column) const;
    [[nodiscard]] bool isChecked(int row) const { return checked_[indexOf(row)]; }
    void setChecked(int row, bool checked);
    /// Marks all that are shown, or none of them.
    void checkShown(bool checked);

    /// Whether shown or not, in the archive's order.
    [[nodiscard]] std::vector<std::int16_t> checked() const;
    [[nodiscard]] std::size_t checkedCount() const { return checkedCount_; }
    /// Exactly these.
    void check(const std::vector<std::int16_t>& textures);

    /// The row that the keyboard is at, -1 where none is shown. It follows its texture as far as that is
    /// shown.
    [[nodiscard]] int currentRow() const { return currentRow_; }
    void setCurrentRow(int row);
    void goTo(std::int16_t texture);

    /// Rises when other textures are shown.
    [[nodiscard]] std::uint64_t fillings() const { return fillings_; }

private:
    [[nodiscard]] std::size_t indexOf(int row) const {
        return static_cast<std::size_t>(shown_.at(static_cast<std::size_t>(row)));
    }
    bool mark(std::size_t index, bool checked);
    void tellMarks();

    const CddsArchive* archive_ = nullptr;
    std::vector<std::string> names_; ///< in capitals
    std::vector<bool> checked_;
    std::vector<std::int16_t> shown_;
    std::size_t checkedCount_ = 0;
    std::uint64_t fillings_ = 0;
    int currentRow_ = -1;
};

} // namespace pelrath::several
