#pragma once

#include "archive/image_file_kind.hpp"
#include "controls/check_list_box.hpp"
#include "transfer/level_writer.hpp"
#include "transfer/transfer_controls.hpp"

#include <cstdint>
#include <optional>
#include <vector>

namespace pelrath {

/// What of a texture is made of one picture.
struct LevelWish {
    std::int16_t firstLevel = 0;                          ///< as whose file the picture is named
    bool chained = false;                                 ///< the levels below it are made as well
    std::int16_t selectedLevel = LevelWriter::everyLevel; ///< which of them goes into the archive
    int filter = bilinearFilter;                          ///< of the levels below: place in `lstScaleFilter`
};

/// What an insertion of the dialog's takes.
struct InsertionChoice {
    ImageFileKind kind = ImageFileKind::Dds;
    /// The data of levels is made of pictures, one or, where there is nothing here, none: nothing is marked.
    bool ofPicture = false;
    std::optional<LevelWish> wish;
    /// Otherwise it is taken as it is: of a file with all levels, or of one for each of these.
    bool ofChain = false;
    std::vector<std::int16_t> levels;
    bool intoArchive = true; ///< and not only into the folder of loose files
};

[[nodiscard]] inline std::vector<std::int16_t> markedLevels(const CheckListBox& list) {
    std::vector<std::int16_t> levels;
    for (int row = 0; row < list.count(); ++row) {
        if (list.isChecked(row)) levels.push_back(static_cast<std::int16_t>(row));
    }
    return levels;
}

/// Nothing where a level is wanted and none is marked.
[[nodiscard]] inline std::optional<LevelWish> wishOf(MipmapOperation operation, const CheckListBox& list,
                                                     const DropDownList& filters) {
    const int filter = filters.selectedRow();
    if (operation == Create) return LevelWish{0, true, LevelWriter::everyLevel, filter};
    const auto level = static_cast<std::int16_t>(list.lastCheckedRow());
    if (level < 0) return std::nullopt;
    return LevelWish{level, false, level, filter};
}

[[nodiscard]] inline InsertionChoice choiceOf(const TransferControls& controls, const TransferState& state) {
    InsertionChoice choice;
    choice.kind = state.imageFileKind;
    choice.ofPicture = choice.kind != ImageFileKind::Dds || state.mipmapOperation == Create;
    if (choice.ofPicture)
        choice.wish = wishOf(state.mipmapOperation, controls.List1, controls.lstScaleFilter);
    choice.ofChain = state.mipmapOperation == Embedded;
    choice.levels = markedLevels(controls.List1);
    choice.intoArchive = choice.kind != ImageFileKind::Dds || controls.chkDestination[ToArchive].checked();
    return choice;
}

} // namespace pelrath
