#include "batch/opened_archive.hpp"

#include "archive/image_file_kind.hpp"
#include "batch/collected_messages.hpp"
#include "platform/posix/files.hpp"
#include "platform/runtime_error.hpp"
#include "platform/text.hpp"

#include <utility>

namespace pelrath::batch {

namespace {

bool isMeant(const std::string& pattern, const std::string& name) {
    return matchesPattern(pattern, name) || matchesPattern(pattern, std::string{withoutExtension(name)});
}

} // namespace

ArchiveContents openArchive(Session& session, const std::string& path) try {
    const InputFile file{path};
    session.archivePath = path;
    session.archiveFile = ArchiveFile{file}; // before its tables
    ArchiveContents contents = readArchive(file);
    if (std::holds_alternative<NotAnArchive>(contents)) throw UnreadableArchive{path + " is no CDDS archive"};
    session.archive = makeCatalogue(contents);
    return contents;
} catch (const DamagedArchive& damage) {
    throw UnreadableArchive{path + " is damaged: " + asOneLine(damage.what())};
} catch (const RuntimeError& error) {
    throw UnreadableArchive{error.description()};
}

TextureChoice::TextureChoice(Session& session, std::int16_t texture)
    : session_(session), texture_(session.selectedTexture), baseName_(session.selectedBaseName) {
    session.selectedTexture = texture;
    session.selectedBaseName = std::string{withoutExtension(session.chosenTexture().name)};
}

TextureChoice::~TextureChoice() {
    session_.selectedTexture = texture_;
    session_.selectedBaseName = std::move(baseName_);
}

std::string whyNotSupported(const TextureRecord& texture) {
    if (nativeImageKind(texture)) return {};
    return "textures of the type \"" + visibleText(texture.fourCC) +
           "\" can be neither extracted nor inserted";
}

std::vector<std::int16_t> chosenTextures(const CddsArchive& archive, const std::vector<std::string>& patterns,
                                         std::vector<std::string>& unmatched) {
    std::vector<bool> chosen(archive.textures.size(), patterns.empty());
    for (const std::string& pattern : patterns) {
        bool found = false;
        for (std::size_t i = 0; i < chosen.size(); ++i) {
            if (!isMeant(pattern, archive.textures[i].name)) continue;
            chosen[i] = found = true;
        }
        if (!found) unmatched.push_back(pattern);
    }
    std::vector<std::int16_t> indices;
    for (std::size_t i = 0; i < chosen.size(); ++i) {
        if (chosen[i]) indices.push_back(static_cast<std::int16_t>(i));
    }
    return indices;
}

} // namespace pelrath::batch
