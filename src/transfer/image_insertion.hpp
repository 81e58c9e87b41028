#pragma once

#include "platform/message_boxes.hpp"
#include "platform/posix/folder_lock.hpp"
#include "platform/posix/scratch_file.hpp"
#include "session/session.hpp"
#include "transfer/insertion_choice.hpp"
#include "transfer/insertion_run.hpp"
#include "transfer/level_writer.hpp"
#include "transfer/loaded_level.hpp"
#include "transfer/transfer_controls.hpp"

#include <optional>

namespace pelrath {

/// Compresses one image in the Export/Import folder into the chosen texture's own format and writes one level
/// of it, or all, into the archive. The summary box says what became of it, with the number of levels that
/// the archive really got; what fails is told in a message.
class ImageInsertion {
public:
    struct Controls {
        const CheckListBox& List1;
        const DropDownList& lstScaleFilter;
    };

    ImageInsertion(const Controls& controls, MessageBoxes& boxes, const Session& session,
                   const TransferState& state, const TransferImaging& imaging);

    void performSimpleImageInsertion(ImageFileKind kind, InsertionRun& run);
    /// The same for a run that has begun, with its folder taken.
    void insertImage(ImageFileKind kind, InsertionRun& run);
    /// Takes the folder in which a file is going to be built, and clears it up. Fails as FolderLock does.
    void takeFolder(std::optional<FolderLock>& folder);

private:
    [[nodiscard]] std::optional<LevelWish> choose() const;
    void insertChosen(ImageFileKind kind, const LevelWish& wish, InsertionRun& run, LevelWriter& writer);
    /// The file that was built, if it came to that, is the caller's to remove.
    void buildAndWrite(ImageFileKind kind, const LevelWish& wish, InsertionRun& run, LevelWriter& writer,
                       std::optional<ScratchFile>& built);
    /// Beside the source, or, where another copy of the program could build one of that name, in a place of
    /// its own.
    [[nodiscard]] std::string builtFileOf(const std::string& source) const;

    Controls c_;
    MessageBoxes& boxes_;
    const Session& session_;
    const TransferState& state_;
    TransferImaging imaging_;
    bool isAlone_ = false; ///< in the folder of the images
};

} // namespace pelrath
