#include "platform/text.hpp"

#include "support/values.hpp"

#include <set>

namespace pelrath::test {
namespace {

TEST(Text, EveryAnsiByteSurvivesARoundTrip) {
    std::set<std::string> seen;
    for (int byte = 1; byte < 256; ++byte) {
        const std::string text = ansiToUtf8(std::string(1, static_cast<char>(byte)));
        EXPECT_EQ(characterCount(text), 1U) << byte;
        EXPECT_EQ(ansiCode(lastCharacter(text)), byte);
        seen.insert(text);
    }
    EXPECT_EQ(seen.size(), 255U);
    EXPECT_EQ(ansiToUtf8("\x80\xE9\x9F\x81"), "\u20AC\u00E9\u0178\u0081");
    EXPECT_EQ(ansiCode(U'\u0394'), '?');
}

TEST(Text, CountsCutsAndPadsCharacters) {
    EXPECT_EQ(row(characterCount(""), characterCount("a\u00E9\u20ACz")), "0, 4");
    EXPECT_EQ(
        row(firstCharacters("abc", 2), firstCharacters("a\u00E9\u20ACz", 3), firstCharacters("\u00FCb", 9)),
        "ab, a\u00E9\u20AC, \u00FCb");
    EXPECT_EQ(row(trimBlanks("  a b  "), trimBlanks("   "), trimBlanks("\ta\t")), "a b, , \ta\t");
    std::string line = "|";
    appendPadded(line, "\u00E9\u00E9\u00E9", 4);
    appendPadded(line, "toolong", 4);
    EXPECT_EQ(line, "|\u00E9\u00E9\u00E9 toolong");
    EXPECT_EQ(row(upperCase("ab9_Z"), upperCase("r\u00E9\u0161\u00FF"), upperCase("stra\u00DFe")),
              "AB9_Z, R\u00C9\u0160\u0178, STRA\u00DFE");
}

} // namespace
} // namespace pelrath::test
