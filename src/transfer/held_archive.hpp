#pragma once

#include "session/session.hpp"

#include <cstdint>
#include <memory>

namespace pelrath {

/// The session's archive for one insertion: opened and checked when it is first needed, and that file held
/// until this goes. What takes its place meanwhile is never read, copied, changed or written into.
class HeldArchive {
public:
    explicit HeldArchive(Session& session) : session_(session) {}

    [[nodiscard]] const Session& session() const { return session_; }

    /// Who keeps it keeps the file open. ArchiveRefused where it is not the file that was read.
    [[nodiscard]] std::shared_ptr<const InputFile> file();
    /// The file's tables, read again. ArchiveRefused where its levels must not be overwritten: it is not, or
    /// no longer, the file that was read, or its path does not lead to it any more.
    ArchiveContents requireTables();
    /// Writes over a level's bytes, all of them or none (see overwriteWholly()), flushed. ArchiveRefused as
    /// above, as far as it shows without reading. The session knows the file as it then is.
    void overwrite(std::uint64_t offset, Bytes bytes);

private:
    Session& session_;
    std::shared_ptr<const InputFile> file_;
};

} // namespace pelrath
