#pragma once

#include "platform/message_boxes.hpp"
#include "platform/posix/file_mode.hpp"
#include "transfer/held_archive.hpp"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace pelrath {

/// Makes a read-only archive writable for the time of an insertion, if the user agrees.
class ReadOnlyArchive {
public:
    enum Action : std::int32_t { BeforeWriting = 0, AfterWriting = 1 };

    explicit ReadOnlyArchive(MessageBoxes& boxes) : boxes_(boxes) {}

    /// Before: asks and clears the attribute where it is set. After: gives an archive that was made writable
    /// its very permissions back, wherever it is by now. Appends what was done to the summary and answers
    /// whether the operation may proceed; what fails is told in a message, and is tried again by the next
    /// `AfterWriting`.
    bool handleReadOnlyArchive(Action action, HeldArchive& archive, std::string& summary);

    /// An archive still has not got its permissions back.
    [[nodiscard]] bool owesMode() const { return madeWritable_.has_value(); }

private:
    bool makeWritable(HeldArchive& archive, std::string& summary);
    void restore(std::string& summary);

    struct MadeWritable {
        std::shared_ptr<const InputFile> file;
        FileMode before;
    };
    MessageBoxes& boxes_;
    std::optional<MadeWritable> madeWritable_;
};

} // namespace pelrath
