#include "transfer/safe_copy.hpp"

#include "platform/posix/files.hpp"
#include "transfer/failure_report.hpp"
#include "transfer/numbered_copy.hpp"
#include "transfer/summary_text.hpp"

namespace pelrath {

bool SafeCopy::makeSafeCopy(HeldArchive& archive, std::string& summary) {
    if (state_.safeCopyDone) return true; // what is about to be written is safe already
    if (!c_.chkSaveCdds.checked()) {
        summary += noCopyLine();
        return true;
    }
    requireFolder();
    if (session_.settings.cddsBackupFolder.empty()) {
        c_.chkSaveCdds.setEnabled(false);
        c_.chkSaveCdds.setChecked(false);
        c_.chkSaveCdds.setEnabled(true);
        summary += noCopyLine() + "CDDS Safe Copy folder undefined." + lineBreak;
        return false;
    }
    c_.txtCDDSBackupFolder.setText(session_.settings.cddsBackupFolder);
    std::string copy;
    state_.safeCopyDone = attempt(boxes_, {"", "Safe Copy Error : "}, [&] {
        copy = makeNumberedCopy(*archive.file(), session_.archivePath, session_.settings.cddsBackupFolder,
                                busy_);
    });
    summary += state_.safeCopyDone ? "Safe copy done as " + copy + lineBreak : noCopyLine();
    return state_.safeCopyDone;
}

void SafeCopy::requireFolder() {
    std::string& folder = session_.settings.cddsBackupFolder;
    if (!folder.empty() && folderExists(folder)) return;
    folder.clear();
    c_.txtCDDSBackupFolder.setText("Invalid CDDS Safe Copy Folder");
    state_.folderDialogShown = true;
    chooseSafeCopyFolder_();
}

std::string SafeCopy::noCopyLine() const {
    return "No Safe Copy of " + session_.archivePath + " done" + lineBreak;
}

} // namespace pelrath
