#pragma once

#include "calls/disk.hpp"
#include "calls/tracee.hpp"

#include <functional>

namespace pelrath::calls {

/// Writes down what each system call of a program does to a folder. What it does is looked for in the folder
/// itself, behind each call that can change a file: no way of writing goes unseen, but for one through mapped
/// memory, which finish() finds.
class Recorder : public Observer {
public:
    /// Bounds of what is written down: calls between these markers; all of them where there are none.
    using IsMarker = std::function<bool(const Call&)>;
    Recorder(std::string folder, IsMarker begins, IsMarker ends);

    /// The calls that a traced program must stop at.
    static std::vector<int> calls();

    Fate entered(const Call& call) override;
    bool left(const Call& call) override;

    /// What was written down. Throws std::logic_error where the folder is not what the log makes of it, or
    /// nothing was written down.
    Log finish();

private:
    void begin();
    void end();
    void look(const Call& call);
    [[nodiscard]] std::optional<FileKey> flushedBy(const Call& call) const;

    std::string folder_;
    IsMarker begins_, ends_;
    bool recording_ = false;
    Inventory known_; ///< as it was last seen
    Log log_;
};

} // namespace pelrath::calls
