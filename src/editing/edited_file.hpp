#pragma once

#include "session/session.hpp"
#include "transfer/extracted_file.hpp"

#include <string>

namespace pelrath::editing {

/// A texture's file that an editor was given.
struct EditedFile {
    ExtractedFile file;
    std::string archivePath;
    std::int16_t texture = -1;
    TextureRecord record; ///< of the texture, when it was extracted

    /// The chosen texture's.
    [[nodiscard]] static EditedFile ofChosen(const Session& session, const ExtractedFile& file) {
        return {file, session.archivePath, session.selectedTexture, session.chosenTexture()};
    }

    /// "roof-512x512.tga"
    [[nodiscard]] std::string name() const;
    /// The archive in use is the texture's, and has it as it was extracted, but for where its data is.
    [[nodiscard]] bool isOf(const Session& session) const;
    /// The level that the picture is of.
    [[nodiscard]] const MipmapRecord& level() const {
        return record.mipmaps.at(static_cast<std::size_t>(file.level));
    }
};

} // namespace pelrath::editing
