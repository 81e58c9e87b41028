#pragma once

#include "calls/inventory.hpp"

#include <optional>
#include <set>
#include <vector>

/// What a power cut leaves of a folder, as far as file systems promise anything. The rules:
///
/// - Bytes, length and permission bits of a file are lasting once fsync() of that file has returned, bytes
/// and
///   length once fdatasync() has. Permission bits that only fdatasync() followed may still be the old ones.
/// - Before that each page of 4096 bytes is, whatever the others are, in any of the states that it has had
///   since the last flush: a disk is written page by page, in no order. A page that a file has never had on
///   the disk is zero. 4096 is what file systems and disks write in one piece; nothing smaller is torn.
/// - A length is, whatever the pages are, any that the file has had since, and where it grew any whole number
///   of pages between: a new file may be missing its bytes, hold zeros or be short.
/// - Names are lasting once fsync() of their folder has returned. Flushing a file does not keep its name.
///   Before that any of the folder's changes may be missing while later ones are there, as far as each finds
///   what it takes away: nothing is renamed that is not there. Usual file systems keep the order; this is
///   stricter, and includes it.
/// - A rename is one change: the new name leads to the old or to the new file, and the old name goes with it.
/// - sync_file_range() promises nothing.
///
/// Times are not followed. What a page holds comes from the file itself behind each call, whichever way it
/// was written.
namespace pelrath::calls {

/// One name's part in a change.
struct NameChange {
    std::string name;
    std::optional<FileKey> before, after;
};

/// What one system call did.
struct Step {
    std::string call;                      ///< its name
    std::vector<NameChange> names{};       ///< changed at once
    std::map<FileKey, StoredFile> files{}; ///< new ones, and those with other bytes or permission bits
    std::optional<FileKey> flushed{};      ///< a file or a folder
    bool dataOnly = false;                 ///< the flush was fdatasync()
};

struct Log {
    Inventory start; ///< all of it lasting
    std::vector<Step> steps;
};

/// One thing that a power cut decides: the option taken, the oldest first.
struct Question {
    std::vector<std::size_t> since; ///< per option, the step from which on it can be: 0 for what is lasting
    bool minor = false;             ///< of a file, or of a folder's names, that is never flushed at all
};
using Answers = std::vector<std::uint16_t>; ///< an option for each question

/// A folder on a disk while a log is followed step by step.
class Disk {
public:
    explicit Disk(const Log& log);

    void next();
    [[nodiscard]] std::size_t stepsDone() const { return done_; }
    /// What a power cut now would have to decide. The answers that are all last options give the folder as
    /// the program sees it.
    [[nodiscard]] std::vector<Question> questions() const;
    [[nodiscard]] Inventory after(const Answers& answers) const;

private:
    template <class T>
    struct Since {
        T value;
        std::size_t step;
    };
    template <class T>
    using History = std::vector<Since<T>>; ///< the lasting one first
    struct File {
        bool folder = false;
        History<Content> contents;
        History<mode_t> modes;
        History<std::size_t> lengths;
        std::map<std::size_t, History<Content>> pages; ///< those that are not settled, and whose they may be
    };
    struct PendingNames {
        std::vector<NameChange> changes;
        std::size_t step;
    };
    [[nodiscard]] std::vector<FileKey> reachable() const;
    void take(const FileKey& key, const StoredFile& state);
    void flush(const FileKey& key, bool dataOnly);
    static void findChoices(File& file);

    const Log& log_;
    std::set<FileKey> everFlushed_;
    std::map<FileKey, File> files_;
    std::map<std::string, FileKey> lastingNames_, names_;
    std::vector<PendingNames> pending_;
    std::size_t done_ = 0;
};

} // namespace pelrath::calls
