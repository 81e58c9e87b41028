#pragma once

#include "support/temporary_folder.hpp"
#include "table.hpp"

#include <string>
#include <vector>

namespace pelrath::monkey {

/// All the files that one run has to do with, and what must be true of them in the end.
class World {
public:
    explicit World(unsigned seed);

    [[nodiscard]] std::string programFolder() const { return folder_.file("program"); }
    [[nodiscard]] std::string log() const { return folder_.file("log"); }
    /// Of an archive, or of what is none.
    [[nodiscard]] std::string someArchive(Dice& dice) const;
    /// Of a folder, mostly the one for images, or of what is none.
    [[nodiscard]] std::string someFolder(Dice& dice) const;

    /// Something else on the desktop has its way with the files.
    void disturb(Dice& dice, Board& board);
    /// What a run that has come to its end left wrong, line by line; empty when nothing is.
    [[nodiscard]] std::string wrongs() const;

private:
    struct Archive {
        std::string path;
        std::string bytes;    ///< but for what its levels hold
        bool touched = false; ///< its bytes, by something else than the program
    };
    void add(const std::string& name, const std::string& bytes);
    void disturbArchive(Archive& archive, Dice& dice, Board& board);
    [[nodiscard]] std::string wrongAbout(const std::string& path) const;

    test::TemporaryFolder folder_;
    std::vector<Archive> archives_;
};

} // namespace pelrath::monkey
