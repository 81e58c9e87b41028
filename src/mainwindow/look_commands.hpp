#pragma once

#include <span>

namespace pelrath {

/// What the user can do to see a texture otherwise.
enum class LookCommand {
    ZoomIn,
    ZoomOut,
    ActualSize,
    Fit,
    LargerLevel,
    SmallerLevel,
    AllLevels,
    Tiled,
    AllChannels,
    Red,
    Green,
    Blue,
    Alpha,
    ClearTexels,
    Chequered,
    Nearest,
    Averaged,
    Before,
    Difference,
    Copy,
    PanLeft,
    PanRight,
    PanUp,
    PanDown,
    PointLeft,
    PointRight,
    PointUp,
    PointDown,
};

/// A command as the viewport's menu and keyboard have it.
struct LookEntry {
    LookCommand command;
    const char* caption; ///< with "&" before its mnemonic
    const char* key;     ///< in the portable names of keys
    const char* menu;    ///< the title of the menu it stands in; null: the viewport's own
    bool startsGroup = false;
    bool held = false; ///< the key switches it on for as long as it is down
};

/// In the order of the menu.
[[nodiscard]] std::span<const LookEntry> lookEntries();

} // namespace pelrath
