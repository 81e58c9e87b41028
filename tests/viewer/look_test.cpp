#include "mainwindow/viewer/look.hpp"

#include "support/look_acts.hpp"
#include "support/values.hpp"

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
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"nothing: as given", "", "0.25; 0, 0, 0, 512, 256"},
        {"a step in: the middle stays across", "steps 1 256 256", "0.375; 0, -128, 0, 768, 384"},
        {"1:1 in the corner", "zoom 1 0 0", "1; 0, 0, 0, 2048, 1024"},
        {"1:1 near the end: no room beyond it", "zoom 1 511 255", "1; 0, -1533, -512, 2048, 1024"},
        {"in without end", "steps 99 0 0", "32; 0, 0, 0, 65536, 32768"},
        {"out without end, rounded at each step", "steps -99 511 255", "0.0625; 0, 384, 192, 128, 64"},
        {"in and out between two halves", "steps 4 0 0 steps -1 0 0", "0.75; 0, 0, 0, 1536, 768"},
        {"moved beyond its ends", "zoom 1 0 0 pan 50 -9000", "1; 0, 0, -512, 2048, 1024"},
        {"fitted, there is nothing to move", "pan 9 9", "0.25; 0, 0, 0, 512, 256"},
        {"a smaller level is fitted, too", "level 1", "0.5; 1, 0, 0, 512, 256"},
        {"but never enlarged", "level 1 level 1", "1; 3, 0, 0, 256, 128"},
        {"no level beyond the last", "level 3 level -1", "0.25; 0, 0, 0, 512, 256"},
        {"the same part, in a level eight times smaller", "zoom 1 0 0 pan -800 -200 level 2",
         "8; 3, -800, -200, 2048, 1024"},
        {"tiled", "tiled",
         "0.125; 0, 0, 0, 256, 128; 0, 256, 0, 256, 128; 0, 0, 128, 256, 128; 0, 256, 128, 256, 128"},
        {"the chain at 1:8", "chain zoom 0.125 0 0",
         "0.125; 0, 0, 0, 256, 128; 1, 260, 0, 128, 64; 3, 260, 68, 32, 16"},
        {"from the chain to one level", "chain level 1", "0.5; 1, 0, 0, 512, 256"},
        {"what is pointed at in a level of the chain stays there",
         "chain zoom 0.5 0 0 pan -1028 0 zoom 1 100 10",
         "1; 0, -2152, -10, 2048, 1024; 1, -100, -10, 1024, 512; 3, -100, 506, 256, 128"},
        {"from a tile to its level: the same part", "tiled zoom 1 0 0 pan -2148 -1124 level 1",
         "2; 1, -100, -100, 2048, 1024"},
        {"in a smaller viewport", "zoom 1 511 255 room 256 1 0.125 pan -9000 0",
         "1; 0, -1792, -512, 2048, 1024"},
        {"fitted on a screen with a scale", "room 768 1.5 0.375 level 2", "1.5; 3, 0, 0, 384, 192"},
    };
    for (const auto& [what, acts, expected] : cases) {
        Look look = lookAtTexture();
        act(look, acts);
        EXPECT_EQ(seen(look), expected) << what;
        look.begin({{0, 2048, 1024}});
        EXPECT_TRUE(look.isGiven()) << what;
    }
    Look thin;
    thin.begin({{0, 4, 1}, {1, 2, 1}});
    act(thin, "tiled zoom 0.0625 0 0 mouse 1 1");
    EXPECT_EQ(seen(thin) + "; " + row(thin.pointed()->x),
              "0.0625; 0, 0, 0, 1, 1; 0, 1, 0, 1, 1; 0, 0, 1, 1, 1; 0, 1, 1, 1, 1; 2");
    act(thin, "chain");
    EXPECT_EQ(seen(thin), "0.0625; 0, 0, 0, 1, 1; 1, 5, 0, 1, 1");
    Look chain = lookAtTexture();
    chain.arrange(Arrangement::AllLevels);
    const Sheet last = chain.sheets()[1];
    EXPECT_TRUE(last.left + last.width <= 512 && last.left + last.width > 490) << seen(chain);
}

TEST(Look, IsAsGivenOnlyWhileNothingIsZoomedOrPicked) {
    const std::tuple<const char*, const char*, bool> cases[] = {
        {"the mouse over it", "mouse 3 3", true},
        {"zoomed and fitted again", "steps 1 0 0 fit", true},
        {"zoomed out and in to the same scale", "steps -1 0 0 steps 1 0 0", false},
        {"another level", "level 1", false},
        {"tiled", "tiled", false},
        {"averaged", "averaged", false},
        {"the keyboard's pointer", "key 0 0", false}};
    for (const auto& [what, acts, given] : cases) {
        Look look = lookAtTexture();
        act(look, acts);
        EXPECT_EQ(look.isGiven(), given) << what;
    }
}

TEST(Look, KnowsTheTexelPointedAt) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"nowhere", "", "none"},
        {"the texel that is drawn", "mouse 1.9 0", "0, 6, 2"},
        {"below the picture", "mouse 0 256", "none"},
        {"at 32:1", "zoom 32 0 0 mouse 511 31", "0, 15, 0"},
        {"in another level of the chain", "chain zoom 0.125 0 0 mouse 263 69", "3, 28, 12"},
        {"the second tile", "tiled mouse 256 0", "0, 4, 4"},
        {"by keyboard, from the middle", "key 1 -1", "0, 1027, 513"},
        {"by keyboard, from the mouse to the edge", "mouse 1 0 key -99 0", "0, 0, 2"},
        {"by keyboard, of the chain's level that is seen", "chain zoom 1 0 0 pan -2100 -520 key 0 0",
         "3, 152, 64"},
        {"the same place in a smaller level", "key 0 0 level 2", "3, 128, 64"},
        {"of a smaller level, which then is not seen any more",
         "chain zoom 0.125 0 0 mouse 263 69 key 0 0 one", "0, 224, 96"}};
    for (const auto& [what, acts, expected] : cases) {
        Look look = lookAtTexture();
        act(look, acts);
        const auto texel = look.pointed();
        EXPECT_EQ(texel ? row(texel->level, texel->x, texel->y) : "none", expected) << what;
    }
    Look look = lookAtTexture();
    act(look, "zoom 32 0 0 mouse 500 8 key 1 0"); // beyond the edge: the view follows
    EXPECT_EQ(row(look.marker()->left, look.sheets()[0].left), "480, -32");
}

} // namespace
} // namespace pelrath::test
