#include "transfer/destinations.hpp"

#include "platform/files.hpp"

namespace pelrath {

Destinations::Destinations(const Controls& controls, Session& session, TransferState& state,
                           ChooseFolder chooseBazarTempFolder)
    : c_(controls), session_(session), state_(state),
      chooseBazarTempFolder_(std::move(chooseBazarTempFolder)) {
    connections_.push_back(c_.chkDestination[ToArchive].click.connect([this] { toArchive_Click(); }));
    connections_.push_back(c_.chkDestination[ToBazarTemp].click.connect([this] { toBazarTemp_Click(); }));
}

void Destinations::toArchive_Click() { c_.chkSaveCdds.setChecked(c_.chkDestination[ToArchive].checked()); }

void Destinations::toBazarTemp_Click() {
    CheckBox& wanted = c_.chkDestination[ToBazarTemp];
    if (!wanted.enabled()) return;
    std::string& folder = session_.settings.bazarTempFolder;
    if (!folder.empty() && folderExists(folder)) return;
    folder.clear();
    c_.txtbazarTempFolder.setText("Invalid Bazar Temporary Folder");
    state_.folderDialogShown = true;
    chooseBazarTempFolder_();
    if (!folder.empty()) {
        c_.txtbazarTempFolder.setText(folder);
        return;
    }
    wanted.setEnabled(false); // so that this reaction does not run again
    wanted.setChecked(false);
    wanted.setEnabled(true);
}

} // namespace pelrath
