#include "transfer/insertion_run.hpp"

#include "archive/archive_file.hpp"
#include "transfer/failure_report.hpp"

namespace pelrath {

InsertionRun::InsertionRun(const Parts& parts, Session& session)
    : parts_(parts), archive_(session, &parts.longWork) {
    parts_.ExtractSummary.setText("");
}

void InsertionRun::say(const std::string& text) {
    summary_ += text;
    parts_.ExtractSummary.setText(summary_);
}

bool InsertionRun::attempt(const std::function<void()>& work) {
    bool refused = false;
    const auto guarded = [&] {
        try {
            work();
        } catch (const ArchiveRefused& refusal) {
            refused = true;
            parts_.boxes.exclamation("The insertion was stopped: " + refusal.description() + ".",
                                     "Pelrath - Insertion refused");
        }
    };
    const FailureWords words{"Insertion Error Number: ", "Insertion Error : "};
    return pelrath::attempt(parts_.boxes, words, guarded) && !refused;
}

bool InsertionRun::begin(const std::function<void()>& check) {
    if (attempt(check)) {
        std::string ofCopy;
        const bool safe = parts_.safeCopy.makeSafeCopy(archive_, ofCopy);
        say(ofCopy);
        if (safe) return true;
    }
    say("Insertion canceled.");
    return false;
}

bool InsertionRun::handleReadOnly(ReadOnlyArchive::Action action) {
    std::string ofAttribute;
    const bool mayProceed = parts_.readOnly.handleReadOnlyArchive(action, archive_, ofAttribute);
    say(ofAttribute);
    return mayProceed;
}

void InsertionRun::end() {
    (void)pelrath::attempt(parts_.boxes, {"", "Insertion Journal Error : "},
                           [this] { archive_.finish(parts_.readOnly.owesMode()); });
}

InsertionRun::WritePermission::WritePermission(InsertionRun& run)
    : run_(run), granted_(run.handleReadOnly(ReadOnlyArchive::BeforeWriting)) {}

InsertionRun::WritePermission::~WritePermission() { run_.handleReadOnly(ReadOnlyArchive::AfterWriting); }

} // namespace pelrath
