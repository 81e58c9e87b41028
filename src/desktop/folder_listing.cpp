#include "desktop/folder_listing.hpp"

#include "desktop/units.hpp"
#include "platform/posix/files.hpp"
#include "platform/posix/sub_folders.hpp"

namespace pelrath::desktop {

namespace {

QStringList toQStrings(const std::vector<std::string>& texts) {
    QStringList list;
    list.reserve(static_cast<qsizetype>(texts.size()));
    for (const std::string& text : texts) {
        list << toQString(text);
    }
    return list;
}

} // namespace

void listFolders(Background& background, const QString& folder,
                 std::function<void(const FolderListing&)> take) {
    background.run([folder = toUtf8(folder), take = std::move(take)](const Background::Post& post) {
        SubFolders inside = readSubFolders(folder);
        const bool whole = inside.links.empty();
        post([=, found = toQStrings(inside.names)] { take({found, whole, inside.systemError}); });
        if (whole) return;
        // A link may lead to a folder that does not answer, so that what is certain goes first.
        std::erase_if(inside.links,
                      [&folder](const std::string& name) { return !folderExists(joinPath(folder, name)); });
        post([=, found = toQStrings(inside.links)] { take({found, true, inside.systemError}); });
    });
}

} // namespace pelrath::desktop
