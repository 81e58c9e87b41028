#pragma once

#include "batch/archive_check.hpp"

namespace pelrath::batch {

/// Compares two archives, texture by texture of the same name (the second of a name with the second), and
/// tells each texture that only one of them has and each level that is not the same in both: how near the
/// pictures are in decibels (peak signal-to-noise ratio over the four channels), where both can be decoded
/// and have the same sides. Answers how many differences it told; `watcher` may stop it.
[[nodiscard]] std::size_t compareArchives(const Session& one, const Session& other, RunWatcher& watcher,
                                          const Tell& tell);

/// Peak signal-to-noise ratio of two pictures of as many bytes, in decibels; infinite for equal ones.
[[nodiscard]] double decibels(Bytes one, Bytes other);

} // namespace pelrath::batch
