#pragma once

#include "platform/busy_sign.hpp"
#include "platform/posix/files.hpp"

#include <string>

namespace pelrath {

/// Copies the opened archive into `folder` as its name at `archivePath` without the extension, "-", the first
/// number from 0 to 32767 that is free there, and ".cdds", and answers the copy's path. The copy is whole and
/// on the disk, and has replaced nothing. `busy` may be null. Fails as FileCopy does, and where all numbers
/// are taken.
[[nodiscard]] std::string makeNumberedCopy(const InputFile& archive, const std::string& archivePath,
                                           const std::string& folder, BusySign* busy);

} // namespace pelrath
