#pragma once

#include "controls/signal.hpp"
#include "controls/timer.hpp"
#include "editing/edited_file.hpp"
#include "editing/picture_state.hpp"
#include "platform/background_work.hpp"
#include "platform/file_watch.hpp"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace pelrath::editing {

/// The files that editors were given, and which of them were saved. A file counts as saved when it has been
/// the same for a while, can be loaded whole and has other bytes than it was known to have; until then it is
/// waited for, by its next change. What shows happens in the timers' ticks alone.
class WatchList {
public:
    /// Both are there as long as this is.
    WatchList(FileWatch& watch, BackgroundWork& background);
    ~WatchList();
    WatchList(const WatchList&) = delete;
    WatchList& operator=(const WatchList&) = delete;

    /// How long a file must have been the same.
    static constexpr int settlingTime = 400; // milliseconds

    Timer settling;   ///< to be run while nothing else does
    Timer results;    ///< likewise
    Signal<> changed; ///< other files are saved than before

    struct SavedFile {
        EditedFile file;
        PictureState picture;
    };
    /// In the order in which they were saved first.
    [[nodiscard]] std::vector<SavedFile> saved() const;

    /// An editor has been given the file as it is.
    void add(const EditedFile& file);
    /// The program itself has written the file. Where it is one of them, it is this texture's from now on.
    void rewritten(const EditedFile& file);
    /// From here on the files are being read. What is saved meanwhile may be too late for that.
    void insertionBegins();
    /// The file, if it is one of them, was inserted as it was then.
    void inserted(const std::string& path);
    /// A saved file is to be left alone until it is saved again.
    void ignore(const std::string& path);
    /// Looks at a saved file once more, at once. Nothing where it is no whole picture any more; it is waited
    /// for then.
    [[nodiscard]] std::optional<PictureState> lookAgain(const std::string& path);

private:
    struct Entry;
    using Entries = std::vector<std::unique_ptr<Entry>>;

    [[nodiscard]] Entry* find(const std::string& path) const;
    void heed();
    void look();
    void start(Entry& entry);
    /// What the file held in that state is nothing new.
    void know(Entry& entry, const std::optional<FileIdentity>& state);
    void take(Entry& entry, const FileLook& look);
    void keepAsSaved(Entry& entry, const PictureState& picture);
    void showResults();
    void wait();
    /// Runs `work` elsewhere and then `take` here, unless the entry has begun anew meanwhile.
    void run(Entry& entry, const std::function<FileLook()>& work,
             const std::function<void(Entry&, const FileLook&)>& take);

    FileWatch& watch_;
    BackgroundWork& background_;
    Entries entries_;
    std::vector<std::function<void()>> results_;
    unsigned savings_ = 0; ///< counts
    Connections connections_;
    std::shared_ptr<WatchList*> self_; ///< for what comes late
};

} // namespace pelrath::editing
