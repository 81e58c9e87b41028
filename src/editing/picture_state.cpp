#include "editing/picture_state.hpp"

#include "platform/posix/files.hpp"

#include <exception>
#include <functional>
#include <string_view>

namespace pelrath::editing {

namespace {

FileKind fileKindOf(ImageFileKind kind) {
    switch (kind) {
    case ImageFileKind::Bmp:
        return FileKind::Bmp;
    case ImageFileKind::Tga:
        return FileKind::Tga;
    case ImageFileKind::Dds:
        break;
    }
    return FileKind::Dds;
}

PictureState pictureIn(const InputFile& file, ImageFileKind kind) {
    PictureState state{file.identity(), {}, std::nullopt, 0};
    std::vector<std::byte> bytes(static_cast<std::size_t>(file.size()));
    file.readAt(0, bytes);
    const std::string_view text{reinterpret_cast<const char*>(bytes.data()), bytes.size()};
    state.digest = std::hash<std::string_view>{}(text);
    const LoadableFile loadable = makeLoadable(fileKindOf(kind), std::move(bytes));
    state.sides = loadable.sides;
    state.blocks = loadable.blocks;
    return state;
}

} // namespace

FileLook readPicture(const std::string& path, ImageFileKind kind) {
    FileLook look{identityOf(path), true, std::nullopt};
    if (!look.now) return look;
    try {
        PictureState picture = pictureIn(InputFile{path}, kind);
        const auto after = identityOf(path);
        if (picture.identity == look.now && after == look.now) look.picture = picture;
        look.now = after;
    } catch (const std::exception&) { // it is not one yet
    }
    return look;
}

} // namespace pelrath::editing
