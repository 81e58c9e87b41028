#pragma once

#include "session/session.hpp"
#include "transfer/transfer_controls.hpp"

#include <array>
#include <functional>

namespace pelrath {

/// Lets the user choose one of the two working folders, in a modal dialog of its own.
using ChooseFolder = std::function<void()>;

/// Where an insertion goes: into the archive, with a safe copy before, and into the Bazar Temp folder; and
/// which folders both use.
class Destinations {
public:
    struct Controls {
        std::array<CheckBox, 2>& chkDestination;
        CheckBox& chkSaveCdds;
        TextBox& txtCDDSBackupFolder;
        CommandButton& cmdGetCDDSBackupFolder;
        TextBox& txtbazarTempFolder;
        CommandButton& cmdGetBazarTempFolder;
    };

    Destinations(const Controls& controls, Session& session, TransferState& state,
                 ChooseFolder chooseBazarTempFolder, ChooseFolder chooseSafeCopyFolder);

private:
    void toArchive_Click();
    void toBazarTemp_Click();
    void cmdGetCDDSBackupFolder_Click();
    void cmdGetBazarTempFolder_Click();
    void askForBazarTempFolder();

    Controls c_;
    Session& session_;
    TransferState& state_;
    ChooseFolder chooseBazarTempFolder_;
    ChooseFolder chooseSafeCopyFolder_;
    Connections connections_;
};

} // namespace pelrath
