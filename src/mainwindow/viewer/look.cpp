#include "mainwindow/viewer/look.hpp"

#include <algorithm>
#include <array>
#include <cmath>

namespace pelrath {

namespace {

constexpr std::array<double, 19> steps{1.0 / 16, 3.0 / 32, 1.0 / 8, 3.0 / 16, 1.0 / 4, 3.0 / 8, 1.0 / 2,
                                       3.0 / 4,  1,        1.5,     2,        3,       4,       6,
                                       8,        12,       16,      24,       32};
constexpr double gap = 4; // pixels between two levels of a chain

struct Extent {
    double width = 0;
    double height = 0;
};

Extent extentOf(const std::vector<Sheet>& sheets) {
    Extent extent;
    for (const Sheet& sheet : sheets) {
        extent.width = std::max(extent.width, sheet.left + sheet.width);
        extent.height = std::max(extent.height, sheet.top + sheet.height);
    }
    return extent;
}

// A pixel belongs to a picture that reaches beyond its centre.
double pixelsUnder(double length) { return std::max(0.0, std::ceil(length - 0.5)); }

// However far it is zoomed out, a sheet can be seen.
double drawnSide(std::int32_t texels, double scale) { return std::max(texels * scale, 1.0); }

// A picture that fits stays inside, one that does not leaves no free room.
double held(double origin, double extent, double room) {
    const double slack = room - pixelsUnder(extent);
    return std::clamp(std::round(origin), std::min(slack, 0.0), std::max(slack, 0.0));
}

// The least shift that brings a stretch inside.
double inward(double from, double length, double room) {
    if (from < 0) return -from;
    return std::min(room - from - length, 0.0);
}

} // namespace

void Look::begin(std::vector<LevelSides> levels) {
    const ViewRoom room = room_;
    *this = {};
    room_ = room;
    levels_ = std::move(levels);
}

void Look::setRoom(const ViewRoom& room) {
    if (room == room_) return;
    room_ = room;
    moveTo(origin_);
}

bool Look::isGiven() const {
    return !zoom_ && !marked_ && shown_ == 0 && arrangement_ == Arrangement::OneLevel && picks == Picks{};
}

void Look::zoomTo(double scale, Point about) {
    if (!hasTexture()) return;
    const Grip grip = gripAt(about);
    zoom_ = scale;
    bring(grip, about);
}

Look::Grip Look::gripAt(Point point) const {
    const std::vector<Sheet> all = sheets();
    auto found = std::find_if(all.begin(), all.end(), [point](const Sheet& sheet) {
        return point.x >= sheet.left && point.x < sheet.left + sheet.width && point.y >= sheet.top &&
               point.y < sheet.top + sheet.height;
    });
    if (found == all.end()) found = all.begin();
    return {static_cast<std::size_t>(found - all.begin()), (point.x - found->left) / found->width,
            (point.y - found->top) / found->height};
}

void Look::bring(const Grip& grip, Point to) {
    const Sheet sheet = laidOut(*zoom_)[grip.sheet];
    moveTo({to.x - sheet.left - grip.right * sheet.width, to.y - sheet.top - grip.down * sheet.height});
}

void Look::zoomBy(int wanted, Point about) {
    for (; hasTexture() && wanted != 0; wanted -= wanted > 0 ? 1 : -1) {
        constexpr double rounding = 1e-6;
        const double now = scale();
        if (wanted > 0) {
            const auto* const larger = std::upper_bound(steps.begin(), steps.end(), now * (1 + rounding));
            if (larger == steps.end()) return;
            zoomTo(*larger, about);
        } else {
            const auto* const same = std::lower_bound(steps.begin(), steps.end(), now * (1 - rounding));
            if (same == steps.begin()) return;
            zoomTo(*(same - 1), about);
        }
    }
}

void Look::panBy(double right, double down) {
    if (zoom_) moveTo({origin_.x + right, origin_.y + down});
}

void Look::moveTo(Point origin) {
    if (!hasTexture() || !zoom_) return;
    const Extent extent = extentOf(laidOut(*zoom_));
    origin_ = {held(origin.x, extent.width, room_.width), held(origin.y, extent.height, room_.height)};
}

bool Look::hasLevel(int by) const {
    const auto wanted = static_cast<std::int64_t>(shown_) + by;
    return wanted >= 0 && wanted < static_cast<std::int64_t>(levels_.size());
}

void Look::stepLevel(int by) {
    if (!hasLevel(by)) return;
    const Grip grip = gripAt(middle());
    const int levels = levels_[shown_ + static_cast<std::size_t>(by)].level - level().level;
    shown_ += static_cast<std::size_t>(by);
    arrangement_ = Arrangement::OneLevel;
    carryMark();
    if (!zoom_) return;
    zoom_ = std::clamp(std::ldexp(*zoom_, levels), steps.front(), steps.back());
    bring({0, grip.right, grip.down}, middle());
}

void Look::carryMark() {
    if (!marked_) return;
    const auto same = [](std::int32_t at, std::int32_t from, std::int32_t to) {
        return static_cast<std::int32_t>(std::int64_t{at} * to / from);
    };
    const LevelSides* marked = sidesOf(marked_->level);
    marked_ = TexelPlace{level().level, same(marked_->x, marked->width, level().width),
                         same(marked_->y, marked->height, level().height)};
}

void Look::arrange(Arrangement arrangement) {
    arrangement_ = arrangement;
    if (arrangement != Arrangement::AllLevels) carryMark();
    moveTo(origin_);
}

double Look::fittedScale() const {
    if (arrangement_ == Arrangement::OneLevel && shown_ == 0) return room_.given;
    const Extent whole = extentOf(laidOut(1));
    // A chain's gaps, and what is rounded up for them, stay as large as they are.
    const double gaps =
        arrangement_ == Arrangement::AllLevels ? (gap + 1) * static_cast<double>(levels_.size()) : 0;
    const auto fits = [gaps](double room, double extent) {
        return std::max(room - gaps, 1.0) / std::max(extent - gaps, 1.0);
    };
    return std::min({room_.unit, fits(room_.width, whole.width), fits(room_.height, whole.height)});
}

std::vector<Sheet> Look::laidOut(double scale) const {
    if (arrangement_ == Arrangement::AllLevels) return chain(scale);
    const double width = drawnSide(level().width, scale);
    const double height = drawnSide(level().height, scale);
    std::vector<Sheet> sheets;
    const int tiles = arrangement_ == Arrangement::Tiled ? 2 : 1;
    for (int row = 0; row < tiles; ++row) {
        for (int column = 0; column < tiles; ++column) {
            sheets.push_back({{level().level, picks.version},
                              pixelsUnder(column * width),
                              pixelsUnder(row * height),
                              width,
                              height});
        }
    }
    return sheets;
}

// The first level, and beside it all others, one below the other.
std::vector<Sheet> Look::chain(double scale) const {
    std::vector<Sheet> sheets;
    double left = 0;
    double top = 0;
    for (const LevelSides& sides : levels_) {
        const Sheet sheet{{sides.level, picks.version},
                          left,
                          top,
                          drawnSide(sides.width, scale),
                          drawnSide(sides.height, scale)};
        if (sheets.empty()) {
            left = std::ceil(sheet.width) + gap;
        } else {
            top += std::ceil(sheet.height) + gap;
        }
        sheets.push_back(sheet);
    }
    return sheets;
}

std::vector<Sheet> Look::sheets() const {
    if (!hasTexture()) return {};
    std::vector<Sheet> sheets = laidOut(scale());
    if (!zoom_) return sheets;
    for (Sheet& sheet : sheets) {
        sheet.left += origin_.x;
        sheet.top += origin_.y;
    }
    return sheets;
}

void Look::pointAt(Point pointer) {
    pointer_ = pointer;
    marked_.reset();
}

const LevelSides* Look::sidesOf(std::int16_t level) const {
    const auto found = std::find_if(levels_.begin(), levels_.end(),
                                    [level](const LevelSides& sides) { return sides.level == level; });
    return found == levels_.end() ? nullptr : &*found;
}

std::optional<TexelPlace> Look::texelAt(Point point) const {
    for (const Sheet& sheet : sheets()) {
        const double x = std::floor(point.x) + 0.5 - sheet.left; // the middle of a pixel, as it is drawn
        const double y = std::floor(point.y) + 0.5 - sheet.top;
        if (x < 0 || y < 0 || x >= sheet.width || y >= sheet.height) continue;
        const LevelSides& sides = *sidesOf(sheet.image.level);
        const auto texel = [](double at, double extent, std::int32_t side) {
            constexpr double rounding = 1.0 / 4096; // as it is drawn
            return std::min(static_cast<std::int32_t>(at * side / extent + rounding), side - 1);
        };
        return TexelPlace{sheet.image.level, texel(x, sheet.width, sides.width),
                          texel(y, sheet.height, sides.height)};
    }
    return std::nullopt;
}

std::optional<TexelPlace> Look::pointed() const {
    if (marked_ || !pointer_) return marked_;
    return texelAt(*pointer_);
}

std::optional<TexelPlace> Look::texelInTheMiddle() const {
    if (!hasTexture()) return std::nullopt;
    const std::vector<Sheet> all = sheets();
    const auto seen = std::find_if(all.begin(), all.end(), [this](const Sheet& sheet) {
        return sheet.left < room_.width && sheet.left + sheet.width > 0 && sheet.top < room_.height &&
               sheet.top + sheet.height > 0;
    });
    const Sheet& first = seen == all.end() ? all.front() : *seen;
    const auto middleOf = [](double from, double length, double room) {
        return (std::max(from, 0.0) + std::min(from + length, room)) / 2;
    };
    return texelAt(
        {middleOf(first.left, first.width, room_.width), middleOf(first.top, first.height, room_.height)});
}

void Look::movePointed(std::int32_t right, std::int32_t down) {
    std::optional<TexelPlace> texel = pointed();
    if (!texel || sidesOf(texel->level) == nullptr) texel = texelInTheMiddle();
    if (!texel) return;
    const LevelSides& sides = *sidesOf(texel->level);
    texel->x = std::clamp(texel->x + right, 0, sides.width - 1);
    texel->y = std::clamp(texel->y + down, 0, sides.height - 1);
    marked_ = texel;
    const Sheet place = placeOf(*texel);
    panBy(inward(place.left, place.width, room_.width), inward(place.top, place.height, room_.height));
}

Sheet Look::placeOf(const TexelPlace& texel) const {
    const std::vector<Sheet> all = sheets();
    const auto found = std::find_if(all.begin(), all.end(),
                                    [&](const Sheet& sheet) { return sheet.image.level == texel.level; });
    if (found == all.end()) return {};
    const double scale = this->scale();
    return {found->image, found->left + texel.x * scale, found->top + texel.y * scale, scale, scale};
}

std::optional<Sheet> Look::marker() const {
    if (!marked_) return std::nullopt;
    const Sheet place = placeOf(*marked_);
    if (place.width == 0) return std::nullopt;
    return place;
}

} // namespace pelrath
