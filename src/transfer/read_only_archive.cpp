#include "transfer/read_only_archive.hpp"

#include "platform/runtime_error.hpp"
#include "transfer/failure_report.hpp"

namespace pelrath {

bool ReadOnlyArchive::handleReadOnlyArchive(Action action, HeldArchive& archive, std::string& summary) {
    bool proceed = true;
    const bool done = attempt(boxes_, {"", "CDDS Attributes Error : "}, [&] {
        if (action == BeforeWriting) {
            proceed = makeWritable(archive, summary);
        } else {
            restore(summary);
        }
    });
    return proceed && (done || action == AfterWriting);
}

bool ReadOnlyArchive::makeWritable(HeldArchive& archive, std::string& summary) {
    const std::shared_ptr<const InputFile> file = archive.file();
    const FileMode before = fileMode(*file);
    if (!isReadOnly(before)) return true;
    const BoxAnswer answer = boxes_.show(
        file->path() + " is Read Only.\r\n\r\n- Select Ok to make it writable and perform the insertion,\r\n"
                       "- Select Cancel to abort the insertion.",
        "CDDS is read only", BoxIcon::Question, BoxButtons::OkCancel);
    if (answer == BoxAnswer::Cancel) {
        madeWritable_.reset();
        return false;
    }
    archive.noteMode(before);
    madeWritable_ = {file, before};
    try {
        setFileMode(*file, writable(before));
    } catch (const RuntimeError&) {
        // They may have changed all the same, and nothing is going to be written now.
        std::string unsaid;
        restore(unsaid);
        throw;
    }
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
