#pragma once

#include "archive/reader.hpp"
#include "session/session.hpp"

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

namespace pelrath::batch {

/// The file cannot be read, or is no archive or a damaged one. The text is a sentence without its full stop
/// that names the file.
class UnreadableArchive : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Makes the file the session's archive. Its tables are answered; UnreadableArchive where there are none.
ArchiveContents openArchive(Session& session, const std::string& path);

/// The session's chosen texture is another one for as long as this lives.
class TextureChoice {
public:
    TextureChoice(Session& session, std::int16_t texture);
    ~TextureChoice();
    TextureChoice(const TextureChoice&) = delete;
    TextureChoice& operator=(const TextureChoice&) = delete;

private:
    Session& session_;
    std::int16_t texture_;
    std::string baseName_;
};

[[nodiscard]] inline const TextureRecord& textureOf(const CddsArchive& archive, std::int16_t texture) {
    return archive.textures.at(static_cast<std::size_t>(texture));
}

/// How a refusal of the texture's type ends: empty where levels of it can be extracted and inserted.
[[nodiscard]] std::string whyNotSupported(const TextureRecord& texture);

/// The textures whose name, with or without what follows its last dot, matches one of these (see
/// matchesPattern()); all where there is none. `unmatched` gets those that no
/// texture has.
[[nodiscard]] std::vector<std::int16_t> chosenTextures(const CddsArchive& archive,
                                                       const std::vector<std::string>& patterns,
                                                       std::vector<std::string>& unmatched);

} // namespace pelrath::batch
