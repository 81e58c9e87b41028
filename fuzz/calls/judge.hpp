#pragma once

#include "calls/folder_state.hpp"
#include "calls/told.hpp"
#include "calls/tracee.hpp"

#include <cstddef>
#include <string>
#include <vector>

namespace pelrath::calls {

/// One sitting, and the start of the program behind it where it left something to put right.
struct Trial {
    End end;
    std::string output;
    std::vector<Act> acts;
    FolderState left; ///< by the sitting
    bool startedAgain = false;
    std::string outputOfStart;
    std::vector<Act> start;
    FolderState final; ///< behind that start
};

/// Knows what a folder was before a sitting and what an undisturbed one makes of it, and says what is wrong
/// with one that was disturbed.
class Judge {
public:
    /// `texture` is the one that is inserted into.
    Judge(std::string folder, FolderState before, Trial undisturbed, std::size_t texture);

    /// Nothing that a start of the program would have to put right.
    [[nodiscard]] bool clean(const FolderState& state) const;
    /// In words; none where all is as promised: the program neither crashed nor hung, every file is whole,
    /// old or new, none is lost and none left over, the archive's levels are those that were told, and
    /// whatever was not done was told.
    [[nodiscard]] std::vector<std::string> faults(const Trial& trial) const;
    /// The disturbance made no difference that a user could see.
    [[nodiscard]] bool unnoticed(const Trial& trial) const;
    /// More or other messages and summaries than without the disturbance; as far as that act, if one is
    /// named.
    [[nodiscard]] bool told(const Trial& trial, const std::string& upTo = "") const;

private:
    using Faults = std::vector<std::string>;
    struct Level {
        std::size_t offset, size;
    };

    [[nodiscard]] bool known(const std::string& name, const FileState& file) const;
    [[nodiscard]] bool settingsKnown(const std::string& bytes) const;
    void judgeFiles(const Trial& trial, Faults& faults) const;
    void judgeArchive(const Trial& trial, Faults& faults) const;
    void judgeSafeCopy(const Trial& trial, int levelsInserted, Faults& faults) const;
    void judgeWords(const Trial& trial, Faults& faults) const;
    [[nodiscard]] std::string inFolder(const std::string& path) const;

    std::string folder_;
    FolderState before_;
    Trial undisturbed_;
    std::vector<Level> levels_; ///< those that the undisturbed sitting changes
    bool copies_ = false;       ///< the undisturbed sitting makes a safe copy
};

} // namespace pelrath::calls
