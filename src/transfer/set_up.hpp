#pragma once

#include "session/session.hpp"
#include "transfer/resolution_list.hpp"
#include "transfer/transfer_controls.hpp"

namespace pelrath {

/// Makes the dialog ready for the chosen texture and mode, with the default choices.
class SetUp {
public:
    SetUp(TransferControls& controls, TransferState& state, const Session& session,
          ResolutionList& resolutions);

    /// Puts the choices back to where a new dialog has them, before it is shown.
    void clearChoices();
    /// Fills the lists, chooses what the mode starts with, and shows what belongs to it.
    void run();

private:
    void fillFilters();
    void forExtraction();
    void forInsertion();
    void forTexture();
    void showParts(bool insertion);

    TransferControls& c_;
    TransferState& state_;
    const Session& session_;
    ResolutionList& resolutions_;
};

} // namespace pelrath
