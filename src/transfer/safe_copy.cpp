#include "transfer/safe_copy.hpp"

#include "platform/posix/file_copy.hpp"
#include "platform/posix/files.hpp"
#include "platform/posix/leftovers.hpp"
#include "platform/runtime_error.hpp"
#include "transfer/failure_report.hpp"

#include <limits>

namespace pelrath {

namespace {

constexpr const char* lineBreak = "\r\n";
constexpr std::int32_t lastNumber = std::numeric_limits<std::int16_t>::max();

/// The sign of one copy.
class CopySign {
public:
    CopySign(BusySign* sign, std::string what) : sign_(sign), what_(std::move(what)) {}
    ~CopySign() {
        if (sign_ != nullptr) sign_->clear();
    }
    CopySign(const CopySign&) = delete;
    CopySign& operator=(const CopySign&) = delete;

    void operator()(std::uint64_t done, std::uint64_t total) const {
        if (sign_ != nullptr) sign_->show(what_, done, total);
    }

private:
    BusySign* sign_;
    std::string what_;
};

} // namespace

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
    state_.safeCopyDone =
        attempt(boxes_, {"", "Safe Copy Error : "}, [&] { copy = copyArchive(*archive.file()); });
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

std::string SafeCopy::nameOf(std::int32_t number) const {
    const std::string name{withoutExtension(fileName(session_.archivePath))};
    return joinPath(session_.settings.cddsBackupFolder, name + "-" + std::to_string(number) + ".cdds");
}

std::string SafeCopy::copyArchive(const InputFile& archive) const {
    removeHiddenLeftovers(session_.settings.cddsBackupFolder);
    std::int32_t number = 0;
    while (number <= lastNumber && (fileExists(nameOf(number)) || folderExists(nameOf(number)))) {
        ++number;
    }
    if (number <= lastNumber) {
        const CopySign sign{busy_, "Copying " + std::string{fileName(archive.path())}};
        FileCopy copy{archive, session_.settings.cddsBackupFolder, std::cref(sign)};
        // A name can have been taken meanwhile.
        for (; number <= lastNumber; ++number) {
            if (copy.takeName(nameOf(number))) return nameOf(number);
        }
    }
    throw makeError(ErrorNumber::FileExists, "makeSafeCopy",
                    "all numbers up to " + std::to_string(lastNumber) + " are taken in " +
                        session_.settings.cddsBackupFolder + "; please choose another folder for them");
}

std::string SafeCopy::noCopyLine() const {
    return "No Safe Copy of " + session_.archivePath + " done" + lineBreak;
}

} // namespace pelrath
