#include "transfer/editor_launch.hpp"

#include "platform/posix/files.hpp"
#include "platform/posix/temporary_file.hpp"

namespace pelrath {

bool EditorLaunch::launchEditor(const std::string& imagePath, const FileAssociations::Failed& failed) {
    const std::string extension{fileExtension(imagePath)};
    const std::string exe = findExecutableForExtension(extension);
    if (!imagePath.empty() && fileExists(exe)) {
        associations_.open(imagePath, failed);
        return true;
    }
    ExtractSummary_.setText(ExtractSummary_.text() + "\r\nNo executable found for " + extension);
    return false;
}

std::string EditorLaunch::findExecutableForExtension(const std::string& extension) {
    TemporaryFile probe{extension};
    if (probe.path().empty()) return {};
    std::string executable = associations_.executableFor(probe.path());
    probe.remove();
    return executable;
}

} // namespace pelrath
