#pragma once

#include "archive/image_file_kind.hpp"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// Many textures of one archive at once: a plan, which only looks; a run, which does what the plan says; and
/// a report of what was done.
namespace pelrath::batch {

/// Stands for all levels of a texture in one file.
inline constexpr std::int16_t wholeChain = -1;

enum class Fate {
    Planned, ///< will be done
    LeftOut, ///< need not be done, for the reason given
    Refused, ///< was asked for and cannot be done, for the reason given
};

/// A file that holds a level, or the chain, of a texture.
struct PlannedFile {
    std::string path;       ///< empty where there is no such file
    std::int16_t level = 0; ///< or wholeChain
    ImageFileKind kind = ImageFileKind::Dds;
    std::uint64_t bytes = 0; ///< of level data
    bool replaces = false;   ///< a file that is there already
    Fate fate = Fate::Planned;
    std::string reason; ///< a sentence without its full stop; empty where it is planned

    /// Unless it was refused or left out before.
    void refuse(const std::string& why);
};

/// A file that cannot be, or that is no file of a plan's.
[[nodiscard]] PlannedFile refusedFile(const std::string& reason, const std::string& path = {});

struct PlannedTexture {
    std::int16_t texture = -1; ///< its index; -1: files that are of no texture
    std::string name;          ///< the texture's, as in the archive
    std::vector<PlannedFile> files;

    [[nodiscard]] bool hasWork() const;
};

using Plan = std::vector<PlannedTexture>;

/// Everything that is planned for the texture is refused, for this reason.
void refuseAll(PlannedTexture& texture, const std::string& reason);

} // namespace pelrath::batch
