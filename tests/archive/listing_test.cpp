#include "archive/listing.hpp"

#include "platform/text.hpp"
#include "support/values.hpp"

#include <limits>

namespace pelrath::test {
namespace {

constexpr std::int32_t largest = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();

TEST(Listing, HeaderLines) {
    EXPECT_EQ(listing::headerLine(records::Header0C{2, 1, -2, 3, largest}),
              "      2          1         -2          3  2147483647 ");
    EXPECT_EQ(listing::headerLine(records::HeaderCdds{1, 32767, 3, 4, 5, 6, least}),
              "         1      32767          3          4          5          6 -2147483648 ");
}

TEST(Listing, TextureAndMipmapLines) {
    const PlacedTextureCdds cdds{{{"wall.bmp"}, 96, 2, 3, 4, 5, 6, 7, -8},
                                 {128, 256, {'D', 'X', 'T', '1'}, 14, 9, 16, 17, 18, 19, 1000000000},
                                 64,
                                 160};
    std::string line = "what stood there before";
    listing::textureLine(cdds, 0, "wall.bmp", line);
    EXPECT_EQ(
        line,
        "    1  wall.bmp                          256 x  128    DXT1      9         96         64        160         A0 "
        "        14         16         17         18         19  1000000000 " // widened by one
        "         2          3          4          5          6          7         -8 ");

    const PlacedTexture0C small{{{}, 1, 65536, {}, 1, 2, 3, 4, 12, -20}, 88, 68};
    // 32 characters, of which one takes two bytes; an index that widens its column.
    const std::string name = ansiToUtf8("1234567890123456789012345678901\xE9");
    listing::textureLine(small, 9999, name, line);
    EXPECT_EQ(line, " 10000  " + name +
                        " 65536 x    1                12          1          2          3          4 "
                        "       -20         88         68         44 ");

    listing::mipmapLine({200, {-16, 2048, 32, 64}}, 17, line);
    EXPECT_EQ(
        line,
        "   17        2048         64         32        200         C8        -16   FFFFFFF0        184         B8 ");
}

} // namespace
} // namespace pelrath::test
