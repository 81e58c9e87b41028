#pragma once

#include "desktop/background.hpp"

#include <QStringList>

#include <functional>

namespace pelrath::desktop {

/// What is known of a folder's folders so far.
struct FolderListing {
    QStringList found;   ///< since the last call
    bool whole = false;  ///< nothing more will come
    int systemError = 0; ///< why it cannot be read, if it cannot
};

/// Reads a folder in the background: calls `take` with the folders in it, then with what its links lead to.
void listFolders(Background& background, const QString& folder,
                 std::function<void(const FolderListing&)> take);

} // namespace pelrath::desktop
