#pragma once

#include "copies/copy_list.hpp"
#include "session/session.hpp"

#include <functional>
#include <memory>
#include <mutex>
#include <string>

namespace pelrath::copies {

/// How work on another thread is given up.
class GivenUp {
public:
    /// Behind this nothing that is guarded runs any more.
    void giveUp() {
        const std::lock_guard lock{mutex_};
        givenUp_ = true;
    }
    /// False, and nothing has run, where it has been given up.
    [[nodiscard]] bool guarded(const std::function<void()>& work) {
        const std::lock_guard lock{mutex_};
        if (!givenUp_) work();
        return !givenUp_;
    }

private:
    std::mutex mutex_;
    bool givenUp_ = false;
};

/// The session's archive for a thread that has it to itself: what an open archive file knows changes as it is
/// read.
[[nodiscard]] std::shared_ptr<const Session> archiveAlone(const Session& session);

/// Compares the copy at `path` with the session's archive, which is open only inside what `givenUp` guards:
/// the copy may lie on a network that never answers. `progress` hears of each further percent. What fails is
/// in the answer; it means nothing where it was given up.
[[nodiscard]] CopyLook lookAtCopy(const Session& session, const std::string& path, GivenUp& givenUp,
                                  const std::function<void(int percent)>& progress);

} // namespace pelrath::copies
