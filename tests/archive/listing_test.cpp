#include "archive/listing.hpp"

#include "platform/text.hpp"
#include "support/values.hpp"

#include <limits>

namespace pelrath::test {
namespace {

constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();

// Each word behind the place, counted from 0, where it stands.
TEST(Listing, TitlesHaveTheirWordsInPlace) {
    const std::tuple<std::string_view, std::size_t, const char*> cases[] = {
        {listing::headerTitle0C, 51, "1 FileNb 13 Long1 24 Long2 35 Long3 46 Long4"},
        {listing::headerTitleCdds, 76, "5 Long1 16 Long2 27 Long3 38 Long4 49 Long5 60 Long6 71 Long7"},
        {listing::textureTitle0C, 158,
         "0 Index 7 File 12 Name 40 Width 46 Height 55 Type 63 NbMMap 75 Long1 86 Long2 97 Long3 108 Long4 "
         "116 MMapsAdr 129 Offset 140 AdrDec 151 AdrHex"},
        {listing::textureTitleCdds, 254,
         "0 Index 7 File 12 Name 40 Width 46 Height 55 Type 60 NbMMap 73 Addr 82 Offset 89 AdrDescDec 100 AdrDescHex 116 DxtL4 127 DxtL6 "
         "138 Dxtl7 149 Dxtl8 160 Dxtl9 170 Dxtl10 182 Long2 193 Long3 204 Long4 215 Long5 226 Long6 237 Long7 248 Long8"},
        {listing::mipmapTitle, 112,
         "0 Index 13 Size 23 Width 33 Height 44 AdrDec 55 AdrHex 63 OffsetDec 74 OffsetHex 88 TrgDec 99 TrgHex"},
    };
    for (const auto& [title, length, words] : cases) {
        std::string expected(length, ' ');
        std::istringstream parts{words};
        std::size_t at = 0;
        for (std::string word; parts >> at >> word;) {
            expected.replace(at, word.size(), word);
        }
        EXPECT_EQ(title, expected);
    }
}

TEST(Listing, HeaderLines) {
    EXPECT_EQ(listing::headerLine(records::Header0C{2, 1, -2, 3, most}),
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
