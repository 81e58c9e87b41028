#pragma once

#include "session/session.hpp"
#include "transfer/transfer_controls.hpp"

#include <cstdint>
#include <string>
#include <vector>

namespace pelrath {

/// What the dialog's controls are set to.
struct TransferChoices {
    FileTypeOption fileType = DdsFileType;
    MipmapOperation operation = Single;
    int filter = bilinearFilter;
    std::vector<std::int16_t> levels; ///< that are marked; none: as the rules mark them
    bool overwrite = false;
    bool launchEditor = false;
    bool toArchive = true;
    bool safeCopy = true;
    bool toBazarTemp = false;
};

[[nodiscard]] TransferChoices choicesOf(const TransferControls& controls, const TransferState& state);

/// Sets the controls of a dialog that has been set up, one after another and by their own events, as a user
/// does. What cannot be chosen for the texture or in the mode is left as it is, and so is a Bazar Temp folder
/// that is not there: nothing is asked for.
void choose(TransferControls& controls, const Session& session, const TransferChoices& choices);

/// The files that an insertion with these choices takes, of the session's texture and from its folder. Fails
/// as buildImageFileName() does.
[[nodiscard]] std::vector<std::string> sourcesOf(const TransferChoices& choices, const Session& session);

/// The choices without their levels, as words of a settings file, and back. Words that are not known do not
/// count.
[[nodiscard]] std::string wordsOf(const TransferChoices& choices, DialogMode mode);
[[nodiscard]] TransferChoices choicesFromWords(const std::string& words);

} // namespace pelrath
