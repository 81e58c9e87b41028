#pragma once

#include "platform/posix/files.hpp"

#include <cstddef>
#include <string>
#include <vector>

namespace pelrath {

/// For as long as it lives, every file that the library opens for reading holds these bytes: what was
/// checked is what the library sees, whatever happens to the file meanwhile. A
/// second one beside it fails with "Invalid procedure call".
class ReadingFromMemory {
public:
    /// The bytes must stay where they are.
    explicit ReadingFromMemory(Bytes bytes);
    ~ReadingFromMemory();
    ReadingFromMemory(const ReadingFromMemory&) = delete;
    ReadingFromMemory& operator=(const ReadingFromMemory&) = delete;
};

/// For as long as it lives, every file that the library opens for writing is kept in memory, so that
/// nothing reaches the disk before it is known to be whole. A second one beside it fails with "Invalid
/// procedure call".
class WritingToMemory {
public:
    WritingToMemory();
    ~WritingToMemory();
    WritingToMemory(const WritingToMemory&) = delete;
    WritingToMemory& operator=(const WritingToMemory&) = delete;

    /// The file as far as it is written; nothing is left here.
    [[nodiscard]] std::vector<std::byte> take();
    /// True when memory ran out, and the bytes are not all.
    [[nodiscard]] bool outOfMemory() const;
};

} // namespace pelrath
