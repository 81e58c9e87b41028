#pragma once

#include "batch/plan.hpp"

#include <string>
#include <vector>

namespace pelrath::batch {

enum class Outcome {
    Done,
    LeftOut,
    Refused,
    Failed,     ///< begun, and nothing of it is there
    NotReached, ///< the run ended before
};

struct FileReport {
    PlannedFile file;
    Outcome outcome = Outcome::NotReached;
    std::string message; ///< why it is not done: one line without its full stop
};

struct TextureReport {
    std::int16_t texture = -1;
    std::string name;
    std::vector<FileReport> files;
    std::vector<std::string> remarks; ///< what else is to be told, a line each
};

/// What a run really did, in the plan's order.
struct Report {
    std::vector<TextureReport> textures;
    std::string safeCopy; ///< its path; empty where none was made
    std::string ended;    ///< why the run ended before all was tried; empty where it did not
    bool stopped = false; ///< because it was asked to

    /// Files with that outcome.
    [[nodiscard]] std::size_t count(Outcome outcome) const;
    /// Nothing that was asked for is undone.
    [[nodiscard]] bool allWell() const;
};

/// The report on a texture that nothing was tried of yet.
[[nodiscard]] TextureReport untried(const PlannedTexture& texture);
/// All that was planned of it has this outcome.
void settle(TextureReport& report, Outcome outcome, const std::string& message = {});

/// Hears of a run's steps and can end it between two textures.
class RunWatcher {
public:
    virtual ~RunWatcher() = default;

    /// Asked before each texture.
    virtual bool stopIsAsked() = 0;
    /// The texture with this number, from 1 on, of so many is begun.
    virtual void begins(const std::string& texture, std::size_t number, std::size_t count) = 0;
    virtual void ended(const TextureReport& report) = 0;
};

} // namespace pelrath::batch
