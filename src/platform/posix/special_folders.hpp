#pragma once

#include <cstdint>
#include <string>

namespace pelrath {

/// Numbers of special folders, the ones that shells go by.
namespace special_folder {
inline constexpr std::int32_t desktop = 0x00;
inline constexpr std::int32_t documents = 0x05;
inline constexpr std::int32_t music = 0x0D;
inline constexpr std::int32_t videos = 0x0E;
inline constexpr std::int32_t desktopFolder = 0x10;
inline constexpr std::int32_t templates = 0x15;
inline constexpr std::int32_t applicationData = 0x1A;
inline constexpr std::int32_t localApplicationData = 0x1C;
inline constexpr std::int32_t pictures = 0x27;
inline constexpr std::int32_t home = 0x28;
} // namespace special_folder

/// Where the user has that folder; empty for any other number, and where the user has none.
[[nodiscard]] std::string specialFolderPath(std::int32_t folder);

} // namespace pelrath
