#include "desktop/file_manager.hpp"

#include "platform/posix/desktop_associations.hpp"
#include "platform/runtime_error.hpp"

namespace pelrath::desktop {

void FileManager::show(const std::vector<std::string>& files) {
    background_.run([this, files](const Background::Post& post) {
        try {
            DesktopAssociations::showInFolder(files);
        } catch (const RuntimeError& error) {
            post([this, why = error.description()] {
                refresh_.gate().whenQuiet(*this, [this, why] { refresh_.deliver([&] { failed_(why); }); });
            });
        }
    });
}

} // namespace pelrath::desktop
