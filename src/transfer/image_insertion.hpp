#pragma once

#include "platform/folder_lock.hpp"
#include "platform/message_boxes.hpp"
#include "platform/scratch_file.hpp"
#include "session/session.hpp"
#include "transfer/dds_builder.hpp"
#include "transfer/level_writer.hpp"
#include "transfer/read_only_archive.hpp"
#include "transfer/safe_copy.hpp"
#include "transfer/texture_extraction.hpp"
#include "transfer/transfer_controls.hpp"

#include <optional>
#include <string>

namespace pelrath {

/// Compresses one image in the Export/Import folder into the chosen texture's own format and writes one level
/// of it, or all, into the archive. The summary box says what became of it, with the number of levels that
/// the archive really got; what fails is told in a message.
class ImageInsertion {
public:
    struct Controls {
        const CheckListBox& List1;
        const DropDownList& lstScaleFilter;
        TextBox& ExtractSummary;
    };

    ImageInsertion(const Controls& controls, MessageBoxes& boxes, const Session& session,
                   const TransferState& state, const TransferImaging& imaging, SafeCopy& safeCopy,
                   ReadOnlyArchive& readOnly);

    void performSimpleImageInsertion(ImageFileKind kind, HeldArchive& archive);

private:
    /// Which level's image is the source, and what of the built file goes where.
    struct Choice {
        std::int16_t firstLevel;
        bool chained;
        std::int16_t selectedLevel;
    };

    [[nodiscard]] std::optional<Choice> choose() const;
    /// Checks the archive, takes the folder in which a file is going to be built, and makes the safe copy.
    bool mayBegin(HeldArchive& archive, std::optional<FolderLock>& folder);
    void insertGuarded(ImageFileKind kind, const Choice& choice, HeldArchive& archive, LevelWriter& writer);
    /// The file that was built, if it came to that, is the caller's to remove.
    void insertImage(ImageFileKind kind, const Choice& choice, LevelWriter& writer,
                     std::optional<ScratchFile>& built);
    bool chooseFormat();
    bool build(const std::string& path, std::uint32_t image);
    void showSummary();

    Controls c_;
    MessageBoxes& boxes_;
    const Session& session_;
    const TransferState& state_;
    TransferImaging imaging_;
    SafeCopy& safeCopy_;
    ReadOnlyArchive& readOnly_;
    DdsBuilder builder_;

    std::string summary_; ///< of the current run
};

} // namespace pelrath
