#pragma once

#include "session/session.hpp"
#include "transfer/transfer_controls.hpp"

#include <array>
#include <functional>

namespace pelrath {

/// Lets the user choose one of the two working folders, in a modal dialog of its own.
using ChooseFolder = std::function<void()>;

/// Where an insertion goes: into the archive, with a safe copy before, and into the Bazar Temp folder.
class Destinations {
public:
    struct Controls {
        std::array<CheckBox, 2>& chkDestination;
        CheckBox& chkSaveCdds;
        TextBox& txtbazarTempFolder;
    };

    Destinations(const Controls& controls, Session& session, TransferState& state,
                 ChooseFolder chooseBazarTempFolder);

private:
    void toArchive_Click();
    void toBazarTemp_Click();

    Controls c_;
    Session& session_;
    TransferState& state_;
    ChooseFolder chooseBazarTempFolder_;
    Connections connections_;
};

} // namespace pelrath
