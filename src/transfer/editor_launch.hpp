#pragma once

#include "controls/text_box.hpp"
#include "platform/file_associations.hpp"

#include <string>

namespace pelrath {

/// Opens an image file in the program that the desktop has for its kind.
class EditorLaunch {
public:
    EditorLaunch(TextBox& ExtractSummary, FileAssociations& associations)
        : ExtractSummary_(ExtractSummary), associations_(associations) {}

    /// Starts the program and does not wait for it; the summary box says so when there is none. Fails where
    /// the probe file cannot be removed. That the program does not start, `failed` hears, maybe later. True
    /// when there is a program.
    bool launchEditor(const std::string& imagePath, const FileAssociations::Failed& failed);

private:
    /// Path of the executable for files of that extension (without its dot), empty when there is none.
    [[nodiscard]] std::string findExecutableForExtension(const std::string& extension);

    TextBox& ExtractSummary_;
    FileAssociations& associations_;
};

} // namespace pelrath
