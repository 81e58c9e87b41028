#pragma once

#include "platform/file_mode.hpp"
#include "platform/message_boxes.hpp"
#include "session/session.hpp"

#include <cstdint>
#include <optional>
#include <string>

namespace pelrath {

/// Makes a read-only archive writable for the time of an insertion, if the user agrees.
class ReadOnlyArchive {
public:
    enum Action : std::int32_t { BeforeWriting = 0, AfterWriting = 1 };

    ReadOnlyArchive(MessageBoxes& boxes, const Session& session) : boxes_(boxes), session_(session) {}

    /// Before: asks and clears the attribute where it is set. After: gives an archive that was made writable
    /// its very permissions back. Appends what was done to the summary and answers whether the operation may
    /// proceed; what fails is told in a message, and is tried again by the next `AfterWriting`.
    bool handleReadOnlyArchive(Action action, std::string& summary);

private:
    bool makeWritable(std::string& summary);
    void restore(std::string& summary);

    struct MadeWritable {
        std::string path;
        FileMode before;
    };
    MessageBoxes& boxes_;
    const Session& session_;
    std::optional<MadeWritable> madeWritable_;
};

} // namespace pelrath
