#include "editing/edited_file.hpp"

#include "platform/posix/files.hpp"

#include <algorithm>

namespace pelrath::editing {

std::string EditedFile::name() const { return std::string{fileName(file.path)}; }

bool EditedFile::isOf(const Session& session) const {
    const auto count = static_cast<std::ptrdiff_t>(session.archive.textures.size());
    if (session.archivePath != archivePath || texture >= count) return false;
    const TextureRecord& now = session.archive.textures[static_cast<std::size_t>(texture)];
    const auto sameSides = [](const MipmapRecord& one, const MipmapRecord& other) {
        return one.width == other.width && one.height == other.height;
    };
    return now.name == record.name && now.fourCC == record.fourCC &&
           std::equal(now.mipmaps.begin(), now.mipmaps.end(), record.mipmaps.begin(), record.mipmaps.end(),
                      sameSides);
}

} // namespace pelrath::editing
