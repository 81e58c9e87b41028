#pragma once

#include "batch/collected_messages.hpp"
#include "batch/report.hpp"
#include "platform/busy_sign.hpp"
#include "session/session.hpp"
#include "transfer/level_writer.hpp"
#include "transfer/read_only_archive.hpp"

#include <functional>
#include <string>

namespace pelrath::batch {

/// On which terms an archive is written into.
struct WritingTerms {
    std::string safeCopyFolder; ///< of a copy of the whole archive before the first write; empty: none
    bool writeReadOnly = false; ///< a read-only archive is made writable for each write; otherwise refused
    BusySign* busy = nullptr;   ///< shows the copy at work; may be null
};

/// Writes plans into the session's archive: each texture is one transaction, before the first of which there
/// is the one safe copy, which a stop leaves without a file. A texture that fails leaves the others alone.
class Writing {
public:
    /// Reads all that is to be written of a planned texture, the session's chosen one, and has the writer
    /// hold it. False: it cannot be, which has been told; exceptions say the same.
    using Hold =
        std::function<bool(const PlannedTexture& texture, HeldArchive& archive, LevelWriter& writer)>;

    /// `messages` are those of `hold` as well.
    Writing(Session& session, const WritingTerms& terms, CollectedMessages& messages, Hold hold);

    [[nodiscard]] Report run(const Plan& plan, RunWatcher& watcher);

private:
    bool begin(Report& report, RunWatcher& watcher);
    [[nodiscard]] std::string makeSafeCopy(const InputFile& archive, RunWatcher& watcher) const;
    void requireWritable(HeldArchive& archive) const;
    [[nodiscard]] TextureReport write(const PlannedTexture& texture);
    void writeHeld(HeldArchive& archive, LevelWriter& writer);

    Session& session_;
    WritingTerms terms_;
    CollectedMessages& messages_;
    Hold hold_;
    ReadOnlyArchive readOnly_;
};

} // namespace pelrath::batch
