#pragma once

#include "archive/archive_file.hpp"
#include "archive/catalogue.hpp"
#include "mainwindow/viewer/viewer_state.hpp"
#include "platform/posix/working_folder.hpp"
#include "settings/application_settings.hpp"

#include <cstdint>
#include <string>

namespace pelrath {

/// What the dialog of one texture is opened for.
enum class DialogMode : std::int16_t { Insertion = 0, Extraction = 1 };

/// The values that the program's windows share. Made once, in main(), and handed on by reference.
struct Session {
    WorkingFolder programFolder;
    std::string otherProgramFolder; ///< which a program with other permissions has; empty: there is none

    CddsArchive archive;     ///< of the last read; replaced whole
    ArchiveFile archiveFile; ///< that `archive` describes; levels are read from and written into no other
    std::string archivePath; ///< chosen last; the next read reads it
    /// Row of the texture pane chosen last, -1 when none is; always a texture of `archive` when not -1,
    /// save for the 0 it starts with.
    std::int16_t selectedTexture = 0;
    std::string selectedBaseName; ///< the chosen texture's name without its extension, empty before any

    DialogMode mode = DialogMode::Insertion; ///< of the command pressed last
    std::string exportImportFolder;          ///< where image files are written to and read from

    bool disclaimerAccepted = false;
    ApplicationSettings settings; ///< as loaded; what changes meanwhile is put back into it at the close

    ViewerState viewer;

    /// One must be chosen.
    [[nodiscard]] const TextureRecord& chosenTexture() const {
        return archive.textures.at(static_cast<std::size_t>(selectedTexture));
    }
};

} // namespace pelrath
