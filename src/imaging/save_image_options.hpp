#pragma once

#include <cstdint>
#include <string>

namespace pelrath {

/// The outputs that setSaveImageOptions() knows by index.
enum class OutputFileType : std::int32_t { Bmp = 0, Tga = 1, Jpg = 2, DdsDxt1 = 3, DdsDxt5 = 4 };

/// Which row of a picture stands first in its file.
enum class FirstRow { Bottom, Top };

/// How the next save is done. One record serves the whole process; each save uses what was left there last.
/// Types and formats are the library's numbers.
struct SaveImageOptions {
    std::int32_t imageType = 0;
    std::string extension; ///< with its dot, lower case
    std::uint16_t convertFormat = 0;
    std::int32_t convertType = 0;
    /// 0 to 65535 can be handed over, 0 to 100 is what can be saved; 100 is the same as 99. Wider than that
    /// range, so that a value outside it is found at the save and not cut silently.
    std::int32_t jpgQuality = 0;
    bool buildMipmaps = false; ///< DDS only
    /// TGA only. The header says which, and most readers heed it, but some show every file from its first row
    /// on.
    FirstRow targaFirstRow = FirstRow::Bottom;
};

} // namespace pelrath
