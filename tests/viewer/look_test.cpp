#include "mainwindow/viewer/look.hpp"

#include "support/values.hpp"

#include <functional>

namespace pelrath::test {
namespace {

// 2048 x 1024 texels, at a quarter as given; level 2 has no data.
Look lookAtTexture() {
    Look look;
    look.setRoom({512, 512, 1, 0.25});
    look.begin({{0, 2048, 1024}, {1, 1024, 512}, {3, 256, 128}});
    return look;
}

std::string seen(const Look& look) {
    std::string text = row(look.scale());
    for (const Sheet& sheet : look.sheets()) {
        text += "; " + row(sheet.image.level, sheet.left, sheet.top, sheet.width, sheet.height);
    }
    return text;
}

TEST(Look, ZoomsAndMovesByWholePixelsAndKeepsThePictureInTheViewport) {
    const Point corner{0, 0}, middle{256, 256}, end{511, 255};
    const std::tuple<const char*, std::function<void(Look&)>, const char*> cases[] = {
        {"nothing: as given", [](Look&) {}, "0.25; 0, 0, 0, 512, 256"},
        {"a step in: the middle stays across, and the whole height is seen",
         [=](Look& l) { l.zoomBy(1, middle); }, "0.375; 0, -128, 0, 768, 384"},
        {"1:1 in the corner", [=](Look& l) { l.zoomTo(1, corner); }, "1; 0, 0, 0, 2048, 1024"},
        {"1:1 near the end: no room beyond it", [=](Look& l) { l.zoomTo(1, end); },
         "1; 0, -1533, -512, 2048, 1024"},
        {"in without end", [=](Look& l) { l.zoomBy(99, corner); }, "32; 0, 0, 0, 65536, 32768"},
        {"out without end, under the pointer, rounded at each step", [=](Look& l) { l.zoomBy(-99, end); },
         "0.0625; 0, 384, 192, 128, 64"},
        {"in and out between two halves", [=](Look& l) { l.zoomBy(4, corner), l.zoomBy(-1, corner); },
         "0.75; 0, 0, 0, 1536, 768"},
        {"moved beyond its ends", [=](Look& l) { l.zoomTo(1, corner), l.panBy(50, -9000); },
         "1; 0, 0, -512, 2048, 1024"},
        {"fitted, there is nothing to move", [](Look& l) { l.panBy(9, 9); }, "0.25; 0, 0, 0, 512, 256"},
        {"a smaller level is fitted, too", [](Look& l) { l.stepLevel(1); }, "0.5; 1, 0, 0, 512, 256"},
        {"but never enlarged", [](Look& l) { l.stepLevel(1), l.stepLevel(1); }, "1; 3, 0, 0, 256, 128"},
        {"no level beyond the last", [](Look& l) { l.stepLevel(3), l.stepLevel(-1); },
         "0.25; 0, 0, 0, 512, 256"},
        {"the same part, in a level eight times smaller",
         [=](Look& l) { l.zoomTo(1, corner), l.panBy(-800, -200), l.stepLevel(2); },
         "8; 3, -800, -200, 2048, 1024"},
        {"tiled", [](Look& l) { l.arrange(Arrangement::Tiled); },
         "0.125; 0, 0, 0, 256, 128; 0, 256, 0, 256, 128; 0, 0, 128, 256, 128; 0, 256, 128, 256, 128"},
        {"the chain at 1:8", [=](Look& l) { l.arrange(Arrangement::AllLevels), l.zoomTo(0.125, corner); },
         "0.125; 0, 0, 0, 256, 128; 1, 260, 0, 128, 64; 3, 260, 68, 32, 16"},
        {"from the chain to one level", [](Look& l) { l.arrange(Arrangement::AllLevels), l.stepLevel(1); },
         "0.5; 1, 0, 0, 512, 256"},
        {"in a smaller viewport",
         [=](Look& l) {
             l.zoomTo(1, end), l.setRoom({256, 256, 1, 0.125}), l.panBy(-9000, 0);
         },
         "1; 0, -1792, -512, 2048, 1024"},
        {"fitted on a screen with a scale",
         [](Look& l) {
             l.setRoom({768, 768, 1.5, 0.375}), l.stepLevel(2);
         },
         "1.5; 3, 0, 0, 384, 192"},
    };
    for (const auto& [what, act, expected] : cases) {
        Look look = lookAtTexture();
        act(look);
        EXPECT_EQ(seen(look), expected) << what;
        look.begin({{0, 2048, 1024}});
        EXPECT_TRUE(look.isGiven()) << what;
    }
    Look chain = lookAtTexture();
    chain.arrange(Arrangement::AllLevels);
    const Sheet last = chain.sheets()[1];
    EXPECT_TRUE(last.left + last.width <= 512 && last.left + last.width > 490) << seen(chain);
}

TEST(Look, IsAsGivenOnlyWhileNothingIsZoomedOrPicked) {
    const std::tuple<const char*, std::function<void(Look&)>, bool> cases[] = {
        {"the mouse over it",
         [](Look& l) {
             l.pointAt({3, 3});
         },
         true},
        {"zoomed and fitted again", [](Look& l) { l.zoomBy(1, {}), l.fit(); }, true},
        {"zoomed out and in to the same scale", [](Look& l) { l.zoomBy(-1, {}), l.zoomBy(1, {}); }, false},
        {"another level", [](Look& l) { l.stepLevel(1); }, false},
        {"tiled", [](Look& l) { l.arrange(Arrangement::Tiled); }, false},
        {"averaged", [](Look& l) { l.picks.averaged = true; }, false},
        {"the keyboard's pointer", [](Look& l) { l.movePointed(0, 0); }, false}};
    for (const auto& [what, act, given] : cases) {
        Look look = lookAtTexture();
        act(look);
        EXPECT_EQ(look.isGiven(), given) << what;
    }
}

TEST(Look, KnowsTheTexelPointedAt) {
    const std::tuple<const char*, std::function<void(Look&)>, const char*> cases[] = {
        {"nowhere", [](Look&) {}, "none"},
        {"the texel that is drawn",
         [](Look& l) {
             l.pointAt({1.9, 0});
         },
         "0, 6, 2"},
        {"below the picture",
         [](Look& l) {
             l.pointAt({0, 256});
         },
         "none"},
        {"at 32:1",
         [](Look& l) {
             l.zoomTo(32, {}), l.pointAt({511, 31});
         },
         "0, 15, 0"},
        {"in another level of the chain",
         [](Look& l) {
             l.arrange(Arrangement::AllLevels), l.zoomTo(0.125, {}), l.pointAt({263, 69});
         },
         "3, 28, 12"},
        {"the second tile",
         [](Look& l) {
             l.arrange(Arrangement::Tiled), l.pointAt({256, 0});
         },
         "0, 4, 4"},
        {"by keyboard, from the middle", [](Look& l) { l.movePointed(1, -1); }, "0, 1027, 513"},
        {"by keyboard, from the mouse to the edge",
         [](Look& l) {
             l.pointAt({1, 0}), l.movePointed(-99, 0);
         },
         "0, 0, 2"},
        {"the same place in a smaller level", [](Look& l) { l.movePointed(0, 0), l.stepLevel(2); },
         "3, 128, 64"}};
    for (const auto& [what, act, expected] : cases) {
        Look look = lookAtTexture();
        act(look);
        const auto texel = look.pointed();
        EXPECT_EQ(texel ? row(texel->level, texel->x, texel->y) : "none", expected) << what;
    }
    Look look = lookAtTexture();
    look.zoomTo(32, {});
    look.pointAt({500, 8});
    look.movePointed(1, 0); // beyond the edge: the view follows
    EXPECT_EQ(row(look.marker()->left, look.sheets()[0].left), "480, -32");
}

} // namespace
} // namespace pelrath::test
