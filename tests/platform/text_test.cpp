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

TEST(Text, CountsAndCutsCharacters) {
    EXPECT_EQ(row(characterCount(""), firstCharacters("", 3)), "0, ");
    EXPECT_EQ(row(characterCount("abc"), firstCharacters("abc", 2)), "3, ab");
    EXPECT_EQ(row(characterCount("a\u00E9\u20ACz"), firstCharacters("a\u00E9\u20ACz", 3)),
              "4, a\u00E9\u20AC");
    EXPECT_EQ(row(characterCount("\u00FCb"), firstCharacters("\u00FCb", 9)), "2, \u00FCb");
}

TEST(Text, UpperCaseKeepsTheNumberOfCharacters) {
    const std::pair<const char*, const char*> cases[] = {{"ab9_Z", "AB9_Z"},
                                                         {"r\u00E9servoir", "R\u00C9SERVOIR"},
                                                         {"\u00FF\u0161", "\u0178\u0160"},
                                                         {"stra\u00DFe", "STRA\u00DFE"}};
    for (const auto& [text, upper] : cases) {
        EXPECT_EQ(upperCase(text), upper);
    }
}

TEST(Text, TrimsAndPads) {
    EXPECT_EQ(row(trimBlanks("  a b  "), trimBlanks("   "), trimBlanks("\ta\t")), "a b, , \ta\t");
    std::string line = "|";
    appendPadded(line, "\u00E9\u00E9", 4);
    appendPadded(line, "toolong", 4);
    EXPECT_EQ(line, "|\u00E9\u00E9  toolong");
}

} // namespace
} // namespace pelrath::test
