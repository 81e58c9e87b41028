#pragma once

#include "platform/busy_sign.hpp"
#include "platform/message_boxes.hpp"
#include "session/session.hpp"
#include "transfer/destinations.hpp"
#include "transfer/held_archive.hpp"
#include "transfer/transfer_controls.hpp"

#include <string>

namespace pelrath {

/// Copies the whole archive into the safe-copy folder before anything is written into it, under a number that
/// no earlier copy has.
class SafeCopy {
public:
    struct Controls {
        CheckBox& chkSaveCdds;
        TextBox& txtCDDSBackupFolder;
    };

    /// `busy` may be null.
    SafeCopy(const Controls& controls, MessageBoxes& boxes, Session& session, TransferState& state,
             ChooseFolder chooseSafeCopyFolder, BusySign* busy)
        : c_(controls), boxes_(boxes), session_(session), state_(state),
          chooseSafeCopyFolder_(std::move(chooseSafeCopyFolder)), busy_(busy) {}

    /// Makes the copy if one is wanted and this operation has none yet, appends what was done to the summary,
    /// and answers whether the operation may proceed: the copy is whole and on the disk, or not wanted.
    bool makeSafeCopy(HeldArchive& archive, std::string& summary);

private:
    void requireFolder();
    [[nodiscard]] std::string noCopyLine() const;

    Controls c_;
    MessageBoxes& boxes_;
    Session& session_;
    TransferState& state_;
    ChooseFolder chooseSafeCopyFolder_;
    BusySign* busy_;
};

} // namespace pelrath
