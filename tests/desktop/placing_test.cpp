#include "desktop/placing.hpp"

#include "support/values.hpp"

#include <gtest/gtest.h>

namespace pelrath::test {
namespace {

// Two screens side by side, the second below a panel.
const QList<QRect> areas{{0, 0, 1000, 700}, {1000, 100, 800, 600}};

std::string placeOf(const QPoint& point) { return row(point.x(), point.y()); }

TEST(Placing, AWindowsTitleBarCanBeTakenHoldOf) {
    const struct {
        const char* wanted;
        QPoint place;
        const char* taken;
    } cases[] = {{"in the first screen", {200, 150}, "200, 150"},
                 {"partly to the left of it", {-250, 0}, "-250, 0"},
                 {"far above and to the left", {-9000, -50}, "-280, 0"}, // 120 - 400
                 {"under the panel", {1300, 20}, "1300, 100"},
                 {"below the second screen", {1200, 9000}, "1200, 579"}, // 699 - 120
                 {"over the right end", {1790, 300}, "1679, 300"}};      // 1799 - 120
    for (const auto& c : cases) {
        EXPECT_EQ(placeOf(desktop::reachable(c.place, 400, areas)), c.taken) << c.wanted;
    }
}

TEST(Placing, ADialogLiesWhollyOnOneScreen) {
    const struct {
        const char* wanted;
        QRect place;
        const char* taken;
    } cases[] = {{"in the first screen", {600, 450, 300, 200}, "600, 450"},
                 {"over a corner", {-50, -20, 300, 200}, "0, 0"},
                 {"over both, more on the second", {900, 650, 300, 200}, "1000, 500"},
                 {"off all screens", {5000, 5000, 300, 200}, "1500, 500"},
                 {"larger than a screen", {500, 300, 2000, 900}, "1000, 100"}};
    for (const auto& c : cases) {
        EXPECT_EQ(placeOf(desktop::onScreen(c.place, areas)), c.taken) << c.wanted;
    }
}

} // namespace
} // namespace pelrath::test
