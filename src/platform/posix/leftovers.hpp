#pragma once

#include "platform/posix/folder_lock.hpp"

#include <string>
#include <string_view>
#include <vector>

/// Files that a program of this kind made and could not remove, because it was killed. Only what bears one of
/// the program's own names, is a plain file of this user's (or his own folder) and is not locked by its maker
/// is ever removed; links are not followed, and where a file system has no locks all stays. What cannot be
/// removed is left to the next time.
namespace pelrath {

/// The hidden files of NewFile in a folder.
void removeHiddenLeftovers(const std::string& folder);

/// How the name of a DDS file ends that an insertion builds beside an image, before which the image's own
/// name stands, without its extension.
inline constexpr std::string_view builtFileEnd = "_tmppelrath.dds";

/// Such files in a folder that this program has to itself.
void removeBuiltLeftovers(const FolderLock& folder);

/// The private folders, and the files of TemporaryFile, in the system's folder for temporary files.
void removeTemporaryLeftovers();

/// Removes hidden and built files from folders that may be slow, or never answer, behind whatever the program
/// does meanwhile. An empty path is no folder.
void removeLeftoversLater(const std::vector<std::string>& folders);

} // namespace pelrath
