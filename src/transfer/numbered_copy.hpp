#pragma once

#include "platform/busy_sign.hpp"
#include "platform/posix/files.hpp"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace pelrath {

/// The file name of a numbered copy: the archive's name at `archivePath` without the extension, "-", the
/// number, and ".cdds".
[[nodiscard]] std::string copyName(const std::string& archivePath, std::int32_t number);
/// The number of the copy that has this file name; nothing where no copy of that archive has it.
[[nodiscard]] std::optional<std::int32_t> numberOfCopy(const std::string& archivePath, std::string_view name);

/// Copies the opened archive into `folder` under the name of a copy with the first number from 0 to 32767
/// that is free there, and answers the copy's path. The copy is whole and
/// on the disk, and has replaced nothing. `busy` may be null. Fails as FileCopy does, and where all numbers
/// are taken.
[[nodiscard]] std::string makeNumberedCopy(const InputFile& archive, const std::string& archivePath,
                                           const std::string& folder, BusySign* busy);

} // namespace pelrath
