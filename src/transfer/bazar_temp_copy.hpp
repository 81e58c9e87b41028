#pragma once

#include "platform/message_boxes.hpp"
#include "session/session.hpp"
#include "transfer/loaded_level.hpp"

#include <cstdint>
#include <string>

namespace pelrath {

/// Puts a texture as a loose image file into the Bazar Temp folder.
class BazarTempCopy {
public:
    BazarTempCopy(MessageBoxes& boxes, const Session& session, const TransferImaging& imaging)
        : boxes_(boxes), session_(session), imaging_(imaging) {}

    /// Saves the image at `sourcePath` under the texture's name, whatever its extension: as BMP, or as TGA
    /// for a DXT5 texture. An existing file is replaced if the user agrees. Appends what was done to the
    /// summary. False when it ended in an error; that, and an image that cannot be loaded, has been told.
    bool StoreCopyInBazarTemp(std::int16_t textureIndex, const std::string& sourcePath, std::string& summary);

private:
    void store(std::int16_t textureIndex, const std::string& sourcePath, std::string& summary);
    /// Fails where the destination is the archive itself, by whatever link.
    void requireNotTheArchive(const std::string& destination) const;
    bool chooseType(const TextureRecord& texture);
    [[nodiscard]] bool mayReplace(const std::string& path, const std::string& name);

    MessageBoxes& boxes_;
    const Session& session_;
    TransferImaging imaging_;
};

} // namespace pelrath
