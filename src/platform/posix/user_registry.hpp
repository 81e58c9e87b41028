#pragma once

#include <optional>
#include <string>

/// Texts of the user's own, grouped by application and section, in the user's configuration folder. Names are
/// found without regard to case; names and values may hold anything.
namespace pelrath {

/// Nothing when there is none. Fails when what is stored cannot be read.
[[nodiscard]] std::optional<std::string> readRegistry(const std::string& application,
                                                      const std::string& section, const std::string& key);

/// Fails when it cannot be stored; what was stored before is then still there.
void writeRegistry(const std::string& application, const std::string& section, const std::string& key,
                   const std::string& value);

} // namespace pelrath
