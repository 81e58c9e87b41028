#include "transfer/destinations.hpp"

#include "platform/posix/files.hpp"

namespace pelrath {

Destinations::Destinations(const Controls& controls, Session& session, TransferState& state,
                           ChooseFolder chooseBazarTempFolder, ChooseFolder chooseSafeCopyFolder)
    : c_(controls), session_(session), state_(state),
      chooseBazarTempFolder_(std::move(chooseBazarTempFolder)),
      chooseSafeCopyFolder_(std::move(chooseSafeCopyFolder)) {
    const auto on = [this](Signal<>& event, auto reaction) {
        connections_.push_back(event.connect(reaction));
    };
    on(c_.chkDestination[ToArchive].click, [this] { toArchive_Click(); });
    on(c_.chkDestination[ToBazarTemp].click, [this] { toBazarTemp_Click(); });
    on(c_.cmdGetCDDSBackupFolder.click, [this] { cmdGetCDDSBackupFolder_Click(); });
    on(c_.cmdGetBazarTempFolder.click, [this] { cmdGetBazarTempFolder_Click(); });
    on(c_.txtbazarTempFolder.changed,
       [this] { c_.cmdGetBazarTempFolder.setEnabled(c_.txtbazarTempFolder.enabled()); });
}

void Destinations::toArchive_Click() { c_.chkSaveCdds.setChecked(c_.chkDestination[ToArchive].checked()); }

void Destinations::toBazarTemp_Click() {
    if (!c_.chkDestination[ToBazarTemp].enabled()) return;
    std::string& folder = session_.settings.bazarTempFolder;
    if (!folder.empty() && folderExists(folder)) return;
    folder.clear();
    c_.txtbazarTempFolder.setText("Invalid Bazar Temporary Folder");
    askForBazarTempFolder();
    if (!folder.empty()) c_.txtbazarTempFolder.setText(folder);
}

void Destinations::askForBazarTempFolder() {
    state_.folderDialogShown = true;
    chooseBazarTempFolder_();
    if (!session_.settings.bazarTempFolder.empty()) return;
    CheckBox& wanted = c_.chkDestination[ToBazarTemp];
    wanted.setEnabled(false); // so that its reaction does not run again
    wanted.setChecked(false);
    wanted.setEnabled(true);
}

void Destinations::cmdGetBazarTempFolder_Click() {
    askForBazarTempFolder();
    c_.txtbazarTempFolder.setText(session_.settings.bazarTempFolder);
}

void Destinations::cmdGetCDDSBackupFolder_Click() {
    state_.folderDialogShown = true;
    chooseSafeCopyFolder_();
    c_.txtCDDSBackupFolder.setText(session_.settings.cddsBackupFolder);
}

} // namespace pelrath
