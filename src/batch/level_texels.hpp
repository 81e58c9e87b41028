#pragma once

#include "archive/catalogue.hpp"
#include "imaging/block_decoder.hpp"
#include "platform/posix/files.hpp"

#include <cstddef>
#include <string>
#include <vector>

namespace pelrath::batch {

/// What keeps a level's data from being decoded, a sentence without its full stop; empty where nothing does.
[[nodiscard]] std::string whyNotDecoded(const TextureRecord& texture, const MipmapRecord& level);

/// The texels of a level that nothing keeps from being decoded, of its data.
[[nodiscard]] std::vector<std::byte> texelsOf(const TextureRecord& texture, const MipmapRecord& level,
                                              Bytes data);

/// A level's data. Fails as InputFile does.
[[nodiscard]] std::vector<std::byte> dataOf(const InputFile& archive, const MipmapRecord& level);

} // namespace pelrath::batch
