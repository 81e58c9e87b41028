#pragma once

#include <string>
#include <vector>

namespace pelrath::calls {

/// What a sitting told between one "act" line and the next; line breaks in it stay \r and \n.
struct Act {
    std::string name;
    std::vector<std::string> boxes, summaries, said;
    bool operator==(const Act&) const = default;
};

/// The lines of a sitting.
std::vector<Act> actsOf(const std::string& output);

/// The act of that name; an empty one where the sitting did not come so far.
const Act& actNamed(const std::vector<Act>& acts, const std::string& name);

/// How many levels the summary of an insertion counts; -1 where it has no count.
int insertedLevels(const Act& insertion);

/// How many files it has not found.
int filesMissingIn(const Act& insertion);

/// The file that the summary calls the safe copy, empty where it names none.
std::string safeCopyIn(const Act& insertion);

/// The files that a summary calls written or overwritten.
std::vector<std::string> filesWrittenIn(const Act& act);

} // namespace pelrath::calls
