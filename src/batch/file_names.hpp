#pragma once

#include "archive/catalogue.hpp"
#include "archive/image_file_kind.hpp"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace pelrath::batch {

/// Whose level a file is of, by its name.
struct FilePlace {
    std::int16_t texture;
    std::int16_t level;
    ImageFileKind kind;
};

/// The names that an archive's levels have as files, each with the levels that have it. Textures whose name
/// can be none, or whose type is not supported, have none.
class FileNames {
public:
    explicit FileNames(const CddsArchive& archive);

    /// Of a file's name without its folder.
    [[nodiscard]] const std::vector<FilePlace>& placesOf(const std::string& name) const;

private:
    void add(const TextureRecord& texture, std::int16_t index);

    std::map<std::string, std::vector<FilePlace>> places_;
};

/// The files in a folder that can be images, sorted. RuntimeError where it cannot be read.
[[nodiscard]] std::vector<std::string> imageFilesIn(const std::string& folder);

} // namespace pelrath::batch
