#pragma once

#include "batch/writing.hpp"

#include <stdexcept>
#include <vector>

namespace pelrath::batch {

/// The two archives do not belong together. The text is a sentence without its full stop.
class NoCopy : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// NoCopy where the copy's tables are others than the archive's, or it is the archive itself.
void requireCopy(const Session& session, const Session& copy);

/// What of an archive is not as it is in a copy of it, texture by texture. The copy stays open meanwhile; the
/// archive is open, and locked, only while a texture of it is read.
class CopyComparison {
public:
    /// Both belong to the caller. Fails as requireCopy().
    CopyComparison(const Session& session, const Session& copy);

    using LevelData = std::vector<std::vector<std::byte>>;
    /// The data of the texture's levels in the copy.
    [[nodiscard]] LevelData dataInCopy(std::int16_t texture) const;
    /// Which levels of the texture are other than this in the archive, and would be put back.
    [[nodiscard]] PlannedTexture compare(std::int16_t texture, const LevelData& inCopy) const;

private:
    const Session& session_;
    const Session& copy_;
    InputFile then_;
};

/// Which levels of these textures are not what they are in a copy of the archive, and would be put back.
/// Fails as requireCopy().
[[nodiscard]] Plan planRestoration(const Session& session, const Session& copy,
                                   const std::vector<std::int16_t>& textures);

/// Puts back what a plan of planRestoration() with the same copy says.
[[nodiscard]] Report runRestoration(Session& session, const Session& copy, const Plan& plan,
                                    const WritingTerms& terms, RunWatcher& watcher);

} // namespace pelrath::batch
