#pragma once

#include "editing/edited_file.hpp"
#include "transfer/texture_extraction_insertion.hpp"

#include <map>
#include <set>
#include <string>
#include <tuple>
#include <utility>

namespace pelrath::editing {

/// What was inserted last, and how, and of which archives there is a safe copy of this run of the program.
class InsertionMemory {
public:
    /// Of the session's texture. Only what was chosen by hand is kept as a choice.
    void note(const Insertion& insertion, const Session& session, bool byHand);

    /// How the file is to be inserted: as its texture was the last time, where that takes this file; else as
    /// it was extracted, a picture of the whole texture for all its levels and one of a smaller level for
    /// that alone. The texture must be the chosen one, and the file's folder that of the session.
    [[nodiscard]] TransferChoices choicesFor(const EditedFile& file, const Session& session) const;

    [[nodiscard]] bool hasSafeCopy(const std::string& archivePath) const;

private:
    std::map<std::pair<std::string, std::int16_t>, TransferChoices> choices_; ///< by archive and texture
    std::set<std::tuple<std::uint64_t, std::uint64_t, std::int64_t>> safe_;   ///< by what stays of a file
};

} // namespace pelrath::editing
