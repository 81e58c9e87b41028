#include "transfer/read_only_archive.hpp"

#include "platform/files.hpp"
#include "transfer/failure_report.hpp"

namespace pelrath {

bool ReadOnlyArchive::handleReadOnlyArchive(Action action, std::string& summary) {
    bool proceed = true;
    const bool done = attempt(boxes_, {"", "CDDS Attributes Error : "}, [&] {
        if (action == BeforeWriting) {
            proceed = makeWritable(summary);
        } else {
            restore(summary);
        }
    });
    return proceed && (done || action == AfterWriting);
}

bool ReadOnlyArchive::makeWritable(std::string& summary) {
    const std::string& path = session_.archivePath;
    const FileMode before = fileMode(path);
    if (!isReadOnly(before)) return true;
    const BoxAnswer answer = boxes_.show(
        path + " is Read Only.\r\n\r\n- Select Ok to make it writable and perform the insertion,\r\n"
               "- Select Cancel to abort the insertion.",
        "CDDS is read only", BoxIcon::Question, BoxButtons::OkCancel);
    if (answer == BoxAnswer::Cancel) {
        madeWritable_.reset();
        return false;
    }
    setFileMode(path, writable(before));
    madeWritable_ = {path, before};
    summary += "CDDS Attributes changed to Read Write\r\n";
    return true;
}

void ReadOnlyArchive::restore(std::string& summary) {
    if (!madeWritable_) return;
    const MadeWritable made = *madeWritable_;
    if (!fileExists(made.path)) madeWritable_.reset(); // told once; there is nothing to try again
    setFileMode(made.path, made.before);
    madeWritable_.reset();
    summary += "CDDS Attributes changed to Read Only\r\n";
}

} // namespace pelrath
