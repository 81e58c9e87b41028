#include "mainwindow/look_commands.hpp"

#include <array>

namespace pelrath {

namespace {

constexpr const char* move = "&Move";
constexpr const char* point = "&Point at a Texel";

constexpr std::array entries{
    LookEntry{LookCommand::ZoomIn, "Zoom &In", "+", nullptr},
    LookEntry{LookCommand::ZoomOut, "Zoom &Out", "-", nullptr},
    LookEntry{LookCommand::ActualSize, "&1:1", "1", nullptr},
    LookEntry{LookCommand::Fit, "&Fit", "Home", nullptr},
    LookEntry{LookCommand::PanLeft, "&Left", "Left", move},
    LookEntry{LookCommand::PanRight, "&Right", "Right", move},
    LookEntry{LookCommand::PanUp, "&Up", "Up", move},
    LookEntry{LookCommand::PanDown, "&Down", "Down", move},
    LookEntry{LookCommand::PointLeft, "&Left", "Shift+Left", point},
    LookEntry{LookCommand::PointRight, "&Right", "Shift+Right", point},
    LookEntry{LookCommand::PointUp, "&Up", "Shift+Up", point},
    LookEntry{LookCommand::PointDown, "&Down", "Shift+Down", point},
    LookEntry{LookCommand::LargerLevel, "L&arger Level", "PgUp", nullptr, true},
    LookEntry{LookCommand::SmallerLevel, "&Smaller Level", "PgDown", nullptr},
    LookEntry{LookCommand::AllLevels, "All &Levels", "L", nullptr},
    LookEntry{LookCommand::Tiled, "&Tiled, 2 x 2", "T", nullptr},
    LookEntry{LookCommand::AllChannels, "All &Channels", "C", nullptr, true},
    LookEntry{LookCommand::Red, "&Red", "R", nullptr},
    LookEntry{LookCommand::Green, "&Green", "G", nullptr},
    LookEntry{LookCommand::Blue, "&Blue", "B", nullptr},
    LookEntry{LookCommand::Alpha, "Alp&ha", "A", nullptr},
    LookEntry{LookCommand::ClearTexels, "Ground through Clear Te&xels", "X", nullptr},
    LookEntry{LookCommand::Chequered, "Che&quered Ground", "Q", nullptr, true},
    LookEntry{LookCommand::Nearest, "&Nearest Texel", "N", nullptr, true},
    LookEntry{LookCommand::Averaged, "A&veraged", "V", nullptr},
    LookEntry{LookCommand::Before, "B&efore the Insertion", "Space", nullptr, true, true},
    LookEntry{LookCommand::Difference, "&Difference", "D", nullptr},
    LookEntry{LookCommand::Copy, "Cop&y", "Ctrl+C", nullptr, true},
};

} // namespace

std::span<const LookEntry> lookEntries() { return entries; }

} // namespace pelrath
