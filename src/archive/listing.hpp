#pragma once

#include "archive/reader.hpp"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// The text of the three listing panes: a title line each, and one line a record with every field of the
/// file, columns right-aligned for a fixed-pitch font. A value too long for its column widens it and shifts
/// the rest of its line. Lengths are in characters.
namespace pelrath::listing {

extern const std::string_view headerTitle0C;    // 51
extern const std::string_view headerTitleCdds;  // 76
extern const std::string_view textureTitle0C;   // 158
extern const std::string_view textureTitleCdds; // 254
extern const std::string_view mipmapTitle;      // 112

[[nodiscard]] std::string headerLine(const records::Header0C& header);   // 52
[[nodiscard]] std::string headerLine(const records::HeaderCdds& header); // 77

/// The line of the texture with the 0-based `index`, put in `line`'s place; `name` is the entry's name
/// without its zero bytes.
void textureLine(const PlacedTexture0C& texture, std::int32_t index, std::string_view name,
                 std::string& line);
void textureLine(const PlacedTextureCdds& texture, std::int32_t index, std::string_view name,
                 std::string& line);

/// The line of a mipmap entry, put in `line`'s place; `number` counts the archive's entries from 1.
void mipmapLine(const PlacedMipmapEntry& mipmap, std::int32_t number, std::string& line); // 106

/// Of the column that the textures' names stand in.
inline constexpr std::size_t nameWidth = 32;

/// A texture's entry in the name list: its name padded to 32 characters, less the blanks at both
/// ends. A part of `name`.
[[nodiscard]] std::string_view nameListEntry(std::string_view name);

} // namespace pelrath::listing
