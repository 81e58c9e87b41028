#pragma once

#include "calls/aftermath.hpp"
#include "calls/tracee.hpp"
#include "support/temporary_folder.hpp"

#include <optional>
#include <string>
#include <vector>

namespace pelrath::calls {

/// An insertion that is to come to a sudden end.
struct CrashScenario {
    std::string name;
    std::string words; ///< of `sitting`
    bool safeCopy = true;
    bool readOnly = false;
    bool namelessFiles = true; ///< the file system has them
    bool links = true;         ///< it has more than one name for a file
    int refusedWrite = 0;      ///< which of the writes into the archive a full disk refuses, from 1 on
};
/// Every way of inserting, with and without a safe copy, into an archive that is read-only and one that is
/// not.
[[nodiscard]] std::vector<CrashScenario> crashScenarios();

/// True for the calls by which `sitting` tells that it begins with an act.
[[nodiscard]] bool beginsAct(const Call& call, const std::string& act);

/// A folder with an archive, in which one insertion is made again and again by a program of its own.
class CrashInsertion {
public:
    /// `sitting` is the program's path. One at a time: the system's folder for temporary files is in its own.
    CrashInsertion(CrashScenario scenario, std::string sitting, int side);

    /// Follows the insertion through these calls, all where there are none, to a good end; only then is it
    /// known what it makes.
    void learn(Observer& observer, const std::vector<int>& calls);
    /// Follows one more, from where the first one began, to any end.
    End repeat(Observer& observer, const std::vector<int>& calls);

    /// What is wrong once the program has been started, and started once more. By a program of its own where
    /// the start is to be watched.
    [[nodiscard]] std::string wrongsAfterStarts(Observer* watching = nullptr,
                                                const std::vector<int>& calls = {}) const;

    [[nodiscard]] const Aftermath& aftermath() const { return *aftermath_; }
    [[nodiscard]] const CrashScenario& scenario() const { return scenario_; }
    [[nodiscard]] const std::string& folder() const { return folder_.path(); }

private:
    End follow(Observer& observer, const std::vector<int>& calls, int refusedWrite);
    [[nodiscard]] Program program(const std::vector<std::string>& arguments,
                                  const std::vector<int>& calls) const;

    CrashScenario scenario_;
    std::string sitting_;
    test::TemporaryFolder folder_;
    test::TemporaryFilesIn temporaryFiles_{folder_.file("tmp")};
    Inventory before_;
    std::optional<Aftermath> aftermath_;
};

} // namespace pelrath::calls
