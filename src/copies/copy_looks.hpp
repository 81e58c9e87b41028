#pragma once

#include "copies/copy_look.hpp"

#include <functional>
#include <memory>
#include <string>

namespace pelrath::copies {

/// Runs a function on the thread of the windows, in the order of posting.
using Post = std::function<void(std::function<void()>)>;
/// Runs work on a thread of its own, whose end nobody waits for. It must hold nothing of the windows' by
/// reference but in what it posts, which is dropped once they are gone.
using Beside = std::function<void(std::function<void(const Post&)>)>;

/// Finds the copies of the session's archive and compares them with it, one after another on threads beside
/// the windows'. What is known about each is in the list.
class CopyLooks {
public:
    CopyLooks(CopyList& list, const Session& session, Beside beside)
        : list_(list), session_(session), beside_(std::move(beside)) {}
    ~CopyLooks() { stop(); }
    CopyLooks(const CopyLooks&) = delete;
    CopyLooks& operator=(const CopyLooks&) = delete;

    Signal<> found; ///< the list has the folder's copies now, or `failure` says why not
    Signal<> ended; ///< no copy is waiting any more

    /// Fills the list anew with what is in the folder, and compares it.
    void begin(const std::string& folder);
    /// The row is the next to be compared, at once, unless it has been; once more where it could not be: what
    /// was in the way may have gone.
    void prefer(int row);
    /// Gives up what runs. Behind this the archive is not open; what was not compared stays so.
    void stop();
    [[nodiscard]] bool isRunning() const { return work_ != nullptr; }
    /// Why the folder could not be read: a sentence without its full stop; empty where it could.
    [[nodiscard]] const std::string& failure() const { return failure_; }

private:
    void take(std::vector<FoundCopy> copies, std::string failure);
    void compareNext();
    void compare(int row);
    void giveUp(CopyState left);
    /// Runs work on a thread of its own; what it posts is dropped where it has been given up.
    void start(std::function<void(GivenUp& givenUp, const Post& post)> work);

    CopyList& list_;
    const Session& session_;
    Beside beside_;
    std::shared_ptr<GivenUp> work_; ///< that runs
    int row_ = -1;                  ///< that is being compared
    std::string failure_;
};

} // namespace pelrath::copies
