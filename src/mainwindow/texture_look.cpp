#include "mainwindow/texture_look.hpp"

#include "platform/posix/files.hpp"
#include "platform/runtime_error.hpp"
#include "platform/text.hpp"
#include "transfer/image_file_name.hpp"

#include <array>
#include <cstdio>
#include <utility>

namespace pelrath {

namespace {

constexpr int stepsAcross = 8; // of the arrow keys

template <class... Values>
std::string formatted(const char* format, Values... values) {
    std::array<char, 80> text{};
    std::snprintf(text.data(), text.size(), format, values...);
    return text.data();
}

std::string scaleText(double scale) {
    return scale < 1 ? formatted("1:%.3g", 1 / scale) : formatted("%.3g:1", scale);
}

// The choices that can be on: what each sets, and what it sets when it is on already.
template <class Value>
void toggle(Value& value, Value on, Value off) {
    value = value == on ? off : on;
}

std::optional<Channel> channelOf(LookCommand command) {
    switch (command) {
    case LookCommand::AllChannels:
        return Channel::All;
    case LookCommand::Red:
        return Channel::Red;
    case LookCommand::Green:
        return Channel::Green;
    case LookCommand::Blue:
        return Channel::Blue;
    case LookCommand::Alpha:
        return Channel::Alpha;
    case LookCommand::ClearTexels:
        return Channel::ClearTexels;
    default:
        return std::nullopt;
    }
}

// Where alpha is what differs, a picture would be clear where nothing does.
void makeOpaque(LevelPicture& picture) {
    for (std::size_t at = 3; at < picture.texels.size(); at += 4) {
        picture.texels[at] = std::byte{255};
    }
}

// What cannot be a file's name stays inside.
std::string fileNameOf(const std::string& name) try {
    return checkedFileName(name);
} catch (const RuntimeError&) {
    return "texture";
}

} // namespace

TextureLook::TextureLook(TextBox& texelStrip, Session& session, TextureViewer& viewer, MessageBoxes& boxes)
    : texelStrip_(texelStrip), session_(session), viewer_(viewer), boxes_(boxes), levels_(session),
      emptied_(viewer.emptied.connect([this] { describe(); })) {}

void TextureLook::begin(std::int16_t texture) {
    levels_.begin(texture);
    Look& look = viewer_.look();
    if (!look.hasTexture() || texture != std::exchange(texture_, texture)) look.begin(levels_.showable());
    texture_ = texture;
    name_ = session_.chosenTexture().name;
    if (!levels_.hasBefore()) look.picks.version = Version::Now;
    if (!prepare()) look.begin(levels_.showable());
    describe();
}

bool TextureLook::isEnabled(LookCommand command) {
    const Look& look = viewer_.look();
    if (!look.hasTexture()) return false;
    switch (command) {
    case LookCommand::LargerLevel:
        return look.hasLevel(-1);
    case LookCommand::SmallerLevel:
        return look.hasLevel(1);
    case LookCommand::ClearTexels:
        return levels_.format() == BlockFormat::Dxt1;
    case LookCommand::Before:
    case LookCommand::Difference:
        return levels_.hasBefore();
    default:
        return true;
    }
}

std::optional<bool> TextureLook::isChecked(LookCommand command) {
    const Look& look = viewer_.look();
    if (const auto channel = channelOf(command)) return look.picks.channel == *channel;
    switch (command) {
    case LookCommand::Fit:
        return look.isFitted();
    case LookCommand::AllLevels:
        return look.arrangement() == Arrangement::AllLevels;
    case LookCommand::Tiled:
        return look.arrangement() == Arrangement::Tiled;
    case LookCommand::Chequered:
        return look.picks.chequered;
    case LookCommand::Nearest:
        return !look.picks.averaged;
    case LookCommand::Averaged:
        return look.picks.averaged;
    case LookCommand::Before:
        return look.picks.version == Version::Before;
    case LookCommand::Difference:
        return look.picks.version == Version::Difference;
    default:
        return std::nullopt;
    }
}

void TextureLook::perform(LookCommand command) {
    if (!isEnabled(command)) return;
    change([this, command](Look& look) { act(look, command); });
}

void TextureLook::act(Look& look, LookCommand command) const {
    if (const auto channel = channelOf(command)) {
        toggle(look.picks.channel, *channel, Channel::All);
        return;
    }
    const Point step{look.middle().x * 2 / stepsAcross, look.middle().y * 2 / stepsAcross};
    switch (command) {
    case LookCommand::ZoomIn:
        return look.zoomBy(1, look.middle());
    case LookCommand::ZoomOut:
        return look.zoomBy(-1, look.middle());
    case LookCommand::ActualSize:
        return look.zoomTo(1, look.middle());
    case LookCommand::Fit:
        return look.fit();
    case LookCommand::LargerLevel:
        return look.stepLevel(-1);
    case LookCommand::SmallerLevel:
        return look.stepLevel(1);
    case LookCommand::AllLevels:
    case LookCommand::Tiled: {
        Arrangement arrangement = look.arrangement();
        toggle(arrangement, command == LookCommand::Tiled ? Arrangement::Tiled : Arrangement::AllLevels,
               Arrangement::OneLevel);
        return look.arrange(arrangement);
    }
    case LookCommand::Chequered:
        return toggle(look.picks.chequered, true, false);
    case LookCommand::Nearest:
    case LookCommand::Averaged:
        look.picks.averaged = command == LookCommand::Averaged;
        return;
    case LookCommand::Before:
        return toggle(look.picks.version, Version::Before, Version::Now);
    case LookCommand::Difference:
        return toggle(look.picks.version, Version::Difference, Version::Now);
    case LookCommand::PanLeft:
        return look.panBy(step.x, 0);
    case LookCommand::PanRight:
        return look.panBy(-step.x, 0);
    case LookCommand::PanUp:
        return look.panBy(0, step.y);
    case LookCommand::PanDown:
        return look.panBy(0, -step.y);
    case LookCommand::PointLeft:
        return look.movePointed(-1, 0);
    case LookCommand::PointRight:
        return look.movePointed(1, 0);
    case LookCommand::PointUp:
        return look.movePointed(0, -1);
    case LookCommand::PointDown:
        return look.movePointed(0, 1);
    default:
        return;
    }
}

void TextureLook::zoomBy(int steps, Point about) {
    change([=](Look& look) { look.zoomBy(steps, about); });
}

void TextureLook::panBy(double right, double down) {
    change([=](Look& look) { look.panBy(right, down); });
}

void TextureLook::pointAt(Point pointer) {
    Look& look = viewer_.look();
    if (!look.hasTexture()) return;
    look.pointAt(pointer);
    describe();
}

void TextureLook::change(const std::function<void(Look& look)>& act) {
    Look& look = viewer_.look();
    if (!look.hasTexture()) return;
    const Look before = look;
    act(look);
    if (!prepare()) look = before;
    describe();
}

bool TextureLook::prepare() try {
    const Look& look = viewer_.look();
    if (look.isGiven()) return true;
    for (const Sheet& sheet : look.sheets()) {
        if (!viewer_.hasImage(sheet.image)) viewer_.putImage(sheet.image, levels_.image(sheet.image));
    }
    return true;
} catch (const RuntimeError& error) {
    tell(error.description());
    return false;
}

void TextureLook::tell(const std::string& reason) {
    boxes_.exclamation("The texture \"" + visibleText(name_) + "\" cannot be shown otherwise: " + reason +
                           (reason.ends_with('.') ? "" : "."),
                       "Pelrath - Texture not available");
}

std::optional<NamedPicture> TextureLook::picture() {
    const Look& look = viewer_.look();
    if (!look.hasTexture()) return std::nullopt;
    try {
        NamedPicture taken{levels_.decoded({look.level().level, look.picks.version}),
                           fileNameOf(std::string{withoutExtension(name_)})};
        if (look.picks.version == Version::Difference) makeOpaque(taken.picture);
        return taken;
    } catch (const RuntimeError& error) {
        tell(error.description());
        return std::nullopt;
    }
}

void TextureLook::describe() {
    const Look& look = viewer_.look();
    texelStrip_.setText(look.hasTexture() ? texelText(look) + "\r\n" + viewText(look) : "");
}

// The columns are as wide as the largest number in them.
std::string TextureLook::texelText(const Look& look) {
    const std::optional<TexelPlace> texel = look.pointed();
    if (!texel) return {};
    const std::string place =
        formatted("%-11s ", (std::to_string(texel->x) + "," + std::to_string(texel->y)).c_str());
    try {
        const auto v = levels_.texel(*texel, look.picks.version);
        return place + formatted("R%3d G%3d B%3d A%3d #%02X%02X%02X%02X", v[0], v[1], v[2], v[3], v[0], v[1],
                                 v[2], v[3]);
    } catch (const RuntimeError&) {
        return place; // a message for each move of the mouse would be no help
    }
}

std::string TextureLook::viewText(const Look& look) {
    const std::optional<TexelPlace> texel = look.pointed();
    const std::int16_t level =
        texel && look.arrangement() == Arrangement::AllLevels ? texel->level : look.level().level;
    const std::string view = formatted("level %-2d %-6s %s ", int{level}, scaleText(look.scale()).c_str(),
                                       levels_.format() == BlockFormat::Dxt1 ? "DXT1" : "DXT5");
    if (look.picks.version == Version::Before) return view + "before";
    if (look.picks.version == Version::Difference) {
        try {
            const LevelDifference& difference = levels_.difference(level);
            const int decimals = difference.mean < 99.5 ? 2 : 1; // or they outgrow the strip
            return view + formatted("mean %.*f largest %d", decimals, difference.mean, difference.largest);
        } catch (const RuntimeError&) {
            return view;
        }
    }
    if (look.scale() >= 1) return view;
    return view + (look.picks.averaged ? "averaged" : "nearest");
}

} // namespace pelrath
