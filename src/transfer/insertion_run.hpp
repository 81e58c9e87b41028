#pragma once

#include "controls/text_box.hpp"
#include "platform/message_boxes.hpp"
#include "transfer/held_archive.hpp"
#include "transfer/read_only_archive.hpp"
#include "transfer/safe_copy.hpp"

#include <functional>
#include <string>

namespace pelrath {

/// One insertion, from the press on the button to its end: its archive, and its summary, which the box shows
/// whenever there is something new in it.
class InsertionRun {
public:
    struct Parts {
        MessageBoxes& boxes;
        SafeCopy& safeCopy;
        ReadOnlyArchive& readOnly;
        TextBox& ExtractSummary;
        LongWork& longWork;
    };

    /// Empties the summary box.
    InsertionRun(const Parts& parts, Session& session);

    [[nodiscard]] HeldArchive& archive() { return archive_; }

    /// Appends to the summary, and shows it.
    void say(const std::string& text);
    [[nodiscard]] const std::string& summary() const { return summary_; }

    /// Runs work of the insertion. What fails is told in a message and gives false: an error, or an archive
    /// that must not be written into (ArchiveRefused).
    bool attempt(const std::function<void()>& work);

    /// Checks what is to be checked first and makes the safe copy, if one is wanted. False: the insertion is
    /// canceled, and the summary says so.
    bool begin(const std::function<void()>& check);

    /// The archive may be written for as long as this lives, unless it is read-only and the user declines.
    class WritePermission {
    public:
        explicit WritePermission(InsertionRun& run);
        ~WritePermission();
        WritePermission(const WritePermission&) = delete;
        WritePermission& operator=(const WritePermission&) = delete;

        [[nodiscard]] explicit operator bool() const { return granted_; }

    private:
        InsertionRun& run_;
        bool granted_;
    };

    /// Nothing comes any more: the journal goes.
    void end();

private:
    bool handleReadOnly(ReadOnlyArchive::Action action);

    Parts parts_;
    HeldArchive archive_;
    std::string summary_;
};

} // namespace pelrath
