#pragma once

#include "calls/inventory.hpp"

#include <string>
#include <vector>

namespace pelrath::calls {

/// What a start of the program and its end made of a folder, and told.
struct Restarted {
    Inventory found; ///< before the start
    Inventory left;
    std::vector<std::string> boxes; ///< "TITLE | TEXT"
};

/// Starts the program in a sitting's folder, without its face and in this process, and ends it.
[[nodiscard]] Restarted restart(const std::string& folder);

/// Looks at what is left of an insertion that came to a sudden end, once the program was started again.
class Aftermath {
public:
    /// `before` and `after` an insertion that nobody disturbed, in each case with no program running. Throws
    /// std::logic_error where that one inserts nothing, or leaves anything but its safe copy.
    Aftermath(Inventory before, Inventory after, bool safeCopyWanted);

    /// What is wrong after the first start and after one more, in words; empty where nothing is.
    [[nodiscard]] std::string wrongs(const Restarted& first, const Restarted& second) const;

    /// How much of the insertion's data an archive holds.
    enum Extent { None, Some, All, Foreign };
    [[nodiscard]] Extent extentOf(const std::string& archive) const;

    [[nodiscard]] const Inventory& before() const { return before_; }
    [[nodiscard]] const Inventory& after() const { return after_; }

private:
    [[nodiscard]] std::string aboutArchive(const Inventory& left) const;
    [[nodiscard]] std::string aboutCopies(const Inventory& left) const;
    [[nodiscard]] std::string aboutOthers(const Inventory& left) const;
    [[nodiscard]] std::string aboutBoxes(const Restarted& first) const;

    Inventory before_, after_;
    bool safeCopyWanted_;
};

} // namespace pelrath::calls
