#pragma once

#include <cstddef>
#include <cstdint>

namespace pelrath {

/// The image library's calls under its own names (IL, ILU and ILUT), as a table, so that an answer that the
/// real library cannot be brought to give can be put in its place. Booleans are 0 or 1.
struct LibraryFunctions {
    void (*ilInit)();
    void (*iluInit)();
    std::uint8_t (*ilutRenderer)(std::uint32_t renderer);
    std::uint8_t (*ilutEnable)(std::uint32_t mode);
    void (*ilShutDown)();
    std::uint32_t (*ilGetError)();
    std::int32_t (*ilGetInteger)(std::uint32_t mode);
    std::int32_t (*iluGetInteger)(std::uint32_t mode);
    std::int32_t (*ilutGetInteger)(std::uint32_t mode);
    void (*ilSetInteger)(std::uint32_t mode, std::int32_t value);
    std::uint8_t (*ilEnable)(std::uint32_t mode);
    std::uint8_t (*ilDisable)(std::uint32_t mode);
    void (*ilGenImages)(std::size_t count, std::uint32_t* images);
    void (*ilBindImage)(std::uint32_t image);
    std::uint8_t (*ilCopyImage)(std::uint32_t source);
    void (*ilDeleteImages)(std::size_t count, const std::uint32_t* images);
    std::uint8_t (*ilTexImage)(std::uint32_t width, std::uint32_t height, std::uint32_t depth,
                               std::uint8_t channels, std::uint32_t format, std::uint32_t dataType,
                               void* data);
    std::uint8_t (*ilActiveMipmap)(std::uint32_t level);
    std::uint8_t* (*ilGetData)();
    std::uint8_t (*ilLoad)(std::uint32_t imageType, const char* fileName);
    std::uint8_t (*ilSaveImage)(const char* fileName);
    std::uint8_t (*ilSave)(std::uint32_t imageType, const char* fileName);
    std::uint8_t (*ilConvertImage)(std::uint32_t format, std::uint32_t dataType);
    std::uint8_t (*iluBuildMipmaps)();
    void (*iluImageParameter)(std::uint32_t parameter, std::uint32_t value);
    std::uint8_t (*iluScale)(std::uint32_t width, std::uint32_t height, std::uint32_t depth);
};

/// The installed library.
[[nodiscard]] const LibraryFunctions& imageLibrary();

} // namespace pelrath
