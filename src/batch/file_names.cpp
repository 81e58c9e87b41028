#include "batch/file_names.hpp"

#include "batch/opened_archive.hpp"
#include "platform/posix/files.hpp"
#include "platform/posix/folder_handle.hpp"
#include "platform/posix/folder_names.hpp"
#include "platform/runtime_error.hpp"
#include "transfer/image_file_name.hpp"

#include <algorithm>
#include <array>

namespace pelrath::batch {

namespace {

bool isImageName(std::string_view name) {
    constexpr std::array<std::string_view, 3> extensions{"dds", "bmp", "tga"};
    return std::ranges::find(extensions, fileExtension(name)) != extensions.end();
}

} // namespace

FileNames::FileNames(const CddsArchive& archive) {
    for (std::size_t i = 0; i < archive.textures.size(); ++i) {
        const TextureRecord& texture = archive.textures[i];
        if (whyNotSupported(texture).empty()) add(texture, static_cast<std::int16_t>(i));
    }
}

void FileNames::add(const TextureRecord& texture, std::int16_t index) try {
    const std::string base{withoutExtension(texture.name)};
    std::int16_t level = 0;
    for (const MipmapRecord& record : texture.mipmaps) {
        for (const ImageFileKind kind : {ImageFileKind::Bmp, ImageFileKind::Tga, ImageFileKind::Dds}) {
            places_[imageFileName(base, record, kind)].push_back({index, level, kind});
        }
        ++level;
    }
} catch (const RuntimeError&) { // no file can be of it
}

const std::vector<FilePlace>& FileNames::placesOf(const std::string& name) const {
    static const std::vector<FilePlace> none;
    const auto found = places_.find(name);
    return found == places_.end() ? none : found->second;
}

std::vector<std::string> imageFilesIn(const std::string& folder) {
    const FileHandle opened = openFolderToRead(folder);
    if (!opened) throw makeSystemError(errno, "imageFilesIn", folder);
    std::vector<std::string> paths;
    for (const std::string& name : namesIn(opened.get(), isImageName)) {
        std::string path = joinPath(folder, name);
        if (fileExists(path)) paths.push_back(std::move(path));
    }
    std::ranges::sort(paths);
    return paths;
}

} // namespace pelrath::batch
