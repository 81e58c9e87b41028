#pragma once

#include "session/session.hpp"
#include "transfer/transfer_choices.hpp"
#include "transfer/transfer_controls.hpp"

#include <optional>

namespace pelrath {

/// Lets the dialog begin with what it was last used with, for extractions and for insertions by themselves,
/// as long as the user wants that.
class Remembering {
public:
    Remembering(TransferControls& controls, Session& session, const TransferState& state);

    /// The dialog has been set up: it is given what it is wanted to begin with or, without that, what is
    /// remembered.
    void begin(const std::optional<TransferChoices>& wanted);
    /// The dialog has done what it was to do.
    void used();

private:
    [[nodiscard]] std::string& words();

    TransferControls& c_;
    Session& session_;
    const TransferState& state_;
    Connection connection_;
};

} // namespace pelrath
