#include "transfer/read_only_archive.hpp"

#include "transfer/failure_report.hpp"

namespace pelrath {

bool ReadOnlyArchive::handleReadOnlyArchive(Action action, HeldArchive& archive, std::string& summary) {
    bool proceed = true;
    const bool done = attempt(boxes_, {"", "CDDS Attributes Error : "}, [&] {
        if (action == BeforeWriting) {
            proceed = makeWritable(archive.file(), summary);
        } else {
            restore(summary);
        }
    });
    return proceed && (done || action == AfterWriting);
}

bool ReadOnlyArchive::makeWritable(const std::shared_ptr<const InputFile>& archive, std::string& summary) {
    const FileMode before = fileMode(*archive);
    if (!isReadOnly(before)) return true;
    const BoxAnswer answer =
        boxes_.show(archive->path() +
                        " is Read Only.\r\n\r\n- Select Ok to make it writable and perform the insertion,\r\n"
                        "- Select Cancel to abort the insertion.",
                    "CDDS is read only", BoxIcon::Question, BoxButtons::OkCancel);
    if (answer == BoxAnswer::Cancel) {
        madeWritable_.reset();
        return false;
    }
    setFileMode(*archive, writable(before));
    madeWritable_ = {archive, before};
    summary += "CDDS Attributes changed to Read Write\r\n";
    return true;
}

void ReadOnlyArchive::restore(std::string& summary) {
    if (!madeWritable_) return;
    setFileMode(*madeWritable_->file, madeWritable_->before);
    madeWritable_.reset();
    summary += "CDDS Attributes changed to Read Only\r\n";
}

} // namespace pelrath
