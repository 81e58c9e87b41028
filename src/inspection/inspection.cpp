#include "inspection/inspection.hpp"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <utility>

namespace pelrath::inspection {

namespace {

/// The user has given up.
struct GivenUp {};

/// Leaves the work where the user gives up.
class LeavingSign : public BusySign {
public:
    explicit LeavingSign(const InspectionServices& services) : services_(services) {}

    void show(const std::string& what, std::uint64_t done, std::uint64_t total) override {
        services_.busy.show(what, done, total);
        if (services_.stopIsAsked()) throw GivenUp{};
    }
    void clear() override { services_.busy.clear(); }

private:
    const InspectionServices& services_;
};

template <class... Values>
std::string formatted(const char* format, Values... values) {
    std::array<char, 160> text{};
    std::snprintf(text.data(), text.size(), format, values...);
    return text.data();
}

std::string valuesText(const std::array<int, 4>& v) {
    return formatted("R%3d G%3d B%3d A%3d", v[0], v[1], v[2], v[3]);
}

} // namespace

Inspection::Inspection(Session& session, TextureExtractionInsertion& dialog, InspectionServices services)
    : session_(session), dialog_(dialog), services_(std::move(services)) {
    arrange(*this);
    connections_.push_back(window.resize.connect([this] { arrange(*this); }));
    connections_.push_back(dialog_.cmdCheck.click.connect([this] { check(); }));
    connections_.push_back(lstLevel.click.connect([this] { stepLevel(0); }));
    connections_.push_back(chkTransparency.click.connect([this] { lookChanged.emit(); }));
    connections_.push_back(cmdClose.click.connect([this] { window.unload(); }));
}

void Inspection::check() try {
    LeavingSign sign{services_};
    open(checkInsertion(session_, dialog_.choice(), &sign));
    // It may have been too short to look at events.
    if (services_.stopIsAsked()) throw GivenUp{};
    window.load();
    const Box& over = dialog_.window.box();
    const Box& own = window.box();
    window.moveTo(over.left + (over.width - own.width) / 2, over.top + (over.height - own.height) / 2);
    dialog_.showOver(window);
    open({}); // they take room
} catch (const GivenUp&) {
    open({});
}

void Inspection::open(InsertionCheck check) {
    check_ = std::move(check);
    window.setCaption("Check - " + session_.selectedBaseName);
    txtFindings.setText(textOf(check_.findings));
    std::vector<LevelSides> sides;
    std::vector<std::string> lines;
    for (const CheckedLevel& level : check_.levels) {
        sides.push_back({level.level, level.width, level.height});
        lines.push_back(std::to_string(level.level) + ":  " + std::to_string(level.width) + " x " +
                        std::to_string(level.height));
    }
    look_.begin(std::move(sides));
    settleRoom();
    lstLevel.setLines(std::move(lines));
    lstLevel.setEnabled(!check_.levels.empty());
    chkTransparency.setEnabled(!check_.levels.empty());
    shown_.reset();
    lstLevel.select(0);
    if (check_.levels.empty()) showLevel();
}

const CheckedLevel* Inspection::level() const {
    return lstLevel.selectedRow() < 0 ? nullptr
                                      : &check_.levels[static_cast<std::size_t>(lstLevel.selectedRow())];
}

void Inspection::showLevel() {
    std::optional<std::array<LevelPicture, Panels>> next;
    if (const CheckedLevel* shown = level()) {
        longWork_.showBy(&services_.busy, "Showing level " + std::to_string(shown->level));
        const auto area =
            static_cast<std::uint64_t>(shown->width) * static_cast<std::uint64_t>(shown->height);
        LevelDifference difference;
        longWork_.run(area, [&] {
            next.emplace();
            (*next)[Before] = pictureOf(check_.format, shown->before, shown->width, shown->height);
            (*next)[After] = pictureOf(check_.format, shown->after, shown->width, shown->height);
            difference = differenceOf((*next)[After], (*next)[Before]);
        });
        longWork_.showBy(nullptr);
        mean_ = difference.mean;
        largest_ = difference.largest;
        (*next)[Difference] = std::move(difference.picture);
    }
    std::swap(shown_, next);
    pictureChanged.emit();
    describe();
}

void Inspection::setRoom(std::int32_t width, std::int32_t height, double unit) {
    room_.width = width;
    room_.height = height;
    room_.unit = unit;
    change([this] { settleRoom(); });
}

// A picture that is no larger than its panel is fitted as it is.
void Inspection::settleRoom() {
    if (!check_.levels.empty()) {
        const CheckedLevel& first = check_.levels.front();
        room_.given =
            std::min({room_.unit, double(room_.width) / first.width, double(room_.height) / first.height});
    }
    look_.setRoom(room_);
}

void Inspection::change(const std::function<void()>& act) {
    act();
    describe();
    lookChanged.emit();
}

void Inspection::zoomBy(int steps, Point about) {
    change([&] { look_.zoomBy(steps, about); });
}

void Inspection::actualSize() {
    change([this] { look_.zoomTo(1, look_.middle()); });
}

void Inspection::fit() {
    change([this] { look_.fit(); });
}

void Inspection::panBy(double right, double down) {
    change([&] { look_.panBy(right, down); });
}

void Inspection::pointAt(Point pointer) {
    change([&] { look_.pointAt(pointer); });
}

void Inspection::movePointed(std::int32_t right, std::int32_t down) {
    change([&] { look_.movePointed(right, down); });
}

// The list is what is chosen; the look follows it.
void Inspection::stepLevel(int by) {
    if (by != 0) return lstLevel.select(lstLevel.selectedRow() + by);
    const CheckedLevel* chosen = level();
    if (chosen == nullptr || !look_.hasTexture()) return;
    const auto row =
        std::find_if(check_.levels.begin(), check_.levels.end(),
                     [this](const CheckedLevel& one) { return one.level == look_.level().level; });
    const auto steps = static_cast<int>(chosen - &*row);
    if (steps == 0 && shown_) return;
    look_.stepLevel(steps);
    showLevel();
    lookChanged.emit();
}

void Inspection::describe() { txtStrip.setText(shown_ ? texelText() + "\r\n" + levelText() : ""); }

std::string Inspection::texelText() const {
    const std::optional<TexelPlace> texel = look_.pointed();
    const CheckedLevel* shown = level();
    if (!texel || texel->level != shown->level) return {};
    const auto valuesOf = [&](Bytes blocks) {
        const auto found = texelOf(check_.format, blocks, shown->width, texel->x, texel->y);
        return std::array<int, 4>{found[0], found[1], found[2], found[3]};
    };
    const std::array<int, 4> before = valuesOf(shown->before);
    const std::array<int, 4> after = valuesOf(shown->after);
    std::array<int, 4> by{};
    for (std::size_t i = 0; i < by.size(); ++i) {
        by[i] = std::abs(after[i] - before[i]);
    }
    return formatted("%-11s ", (std::to_string(texel->x) + "," + std::to_string(texel->y)).c_str()) + "now " +
           valuesText(before) + "   then " + valuesText(after) + "   by " + valuesText(by);
}

std::string Inspection::levelText() const {
    const double scale = look_.scale();
    const std::string ratio = scale < 1 ? formatted("1:%.3g", 1 / scale) : formatted("%.3g:1", scale);
    return formatted("level %-2d    %-6s %s  mean error %.2f, largest %d", int{level()->level}, ratio.c_str(),
                     check_.format == BlockFormat::Dxt1 ? "DXT1" : "DXT5", mean_, largest_);
}

} // namespace pelrath::inspection
