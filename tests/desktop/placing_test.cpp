#include "desktop/placing.hpp"

#include "support/values.hpp"

#include <gtest/gtest.h>

namespace pelrath::test {
namespace {

// Two screens side by side, the first beside a panel, the second below one.
const QList<QRect> areas{{50, 0, 950, 700}, {1000, 100, 800, 600}};

std::string placeOf(const QPoint& point) { return row(point.x(), point.y()); }

TEST(Placing, AWindowBeginsWhereItsTitleBarCanBeTakenHoldOf) {
    const std::tuple<const char*, QPoint, const char*> cases[] = {
        {"in the first screen", {200, 150}, "200, 150"},
        {"nowhere, so that it lies wholly there", {0, 0}, "50, 0"},
        {"partly to the left of it", {-200, 0}, "-200, 0"},
        {"far above and to the left", {-9000, -50}, "-230, 0"}, // 50 + 120 - 400
        {"under the panel", {1300, 20}, "1300, 100"},
        {"on both screens, more of it on the second", {900, 50}, "900, 100"},
        {"below the second screen", {1200, 9000}, "1200, 579"}, // 699 - 120
        {"over the right end", {1790, 300}, "1679, 300"}};      // 1799 - 120
    for (const auto& [wanted, place, taken] : cases) {
        EXPECT_EQ(placeOf(desktop::startingPlace({place, QSize{400, 300}}, areas)), taken) << wanted;
    }
}

TEST(Placing, ADialogLiesWhollyOnOneScreen) {
    const std::tuple<const char*, QRect, const char*> cases[] = {
        {"in the first screen", {600, 450, 300, 200}, "600, 450"},
        {"over a corner", {-50, -20, 300, 200}, "50, 0"},
        {"over both, more on the second", {900, 650, 300, 200}, "1000, 500"},
        {"off all screens", {5000, 5000, 300, 200}, "1500, 500"},
        {"larger than a screen", {500, 300, 2000, 900}, "1000, 100"}};
    for (const auto& [wanted, place, taken] : cases) {
        EXPECT_EQ(placeOf(desktop::onScreen(place, areas)), taken) << wanted;
    }
}

} // namespace
} // namespace pelrath::test
