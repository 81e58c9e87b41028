#pragma once

#include "archive/reader.hpp"
#include "batch/report.hpp"
#include "session/session.hpp"

#include <functional>
#include <string>

namespace pelrath::batch {

/// Takes what was found, a line each without its full stop.
using Tell = std::function<void(const std::string& finding)>;

/// Looks at every level of the session's archive, which has just been read with these contents: that it is of
/// a known type, has the sides that follow from the level above and as many bytes as these take, lies clear
/// of the tables, can be read, and decodes. Answers how many levels are not so; `watcher` may stop it.
[[nodiscard]] std::size_t checkLevels(const Session& session, const ArchiveContents& contents,
                                      RunWatcher& watcher, const Tell& tell);

} // namespace pelrath::batch
