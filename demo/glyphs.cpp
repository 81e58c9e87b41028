#include <array>
#include <cctype>

#include "pen.hpp"

namespace demo {

namespace {

// Each glyph lies on a grid of 5 columns and 7 rows; a stroke is a run of column-row pairs.
struct Glyph {
    char character;
    std::string_view strokes;
};

constexpr std::array<Glyph, 45> glyphs{{
    {'A', "0601103041 4146 0343"},
    {'B', "0006 0030414233 0333444536 3606 3303"},
    {'C', "413010010516363645"},
    {'D', "0006 0030414536 3606"},
    {'E', "40000646 0333"},
    {'F', "400006 0333"},
    {'G', "41301001051636454323"},
    {'H', "0006 4046 0343"},
    {'I', "2026 1030 1636"},
    {'J', "404536160504"},
    {'K', "0006 4003 0346"},
    {'L', "000646"},
    {'M', "0600234046"},
    {'N', "06004640"},
    {'O', "100105163645413010"},
    {'P', "06003041423303"},
    {'Q', "100105163645413010 2446"},
    {'R', "06003041423303 2346"},
    {'S', "413010010213334445361605"},
    {'T', "0040 2026"},
    {'U', "000516364540"},
    {'V', "002640"},
    {'W', "0016233640"},
    {'X', "0046 4006"},
    {'Y', "002340 2326"},
    {'Z', "00400646"},
    {'0', "100105163645413010"},
    {'1', "022026 0646"},
    {'2', "011030414206 0646"},
    {'3', "0110304142334445361605 1333"},
    {'4', "3630044444"},
    {'5', "400003334445361605"},
    {'6', "413010010516364544330303"},
    {'7', "00404116"},
    {'8', "103041423344453616050413020110 1333"},
    {'9', "05163645413010010213334343"},
    {'-', "0343"},
    {'.', "2525"},
    {'/', "0640"},
    {'+', "0343 2125"},
    {':', "2222 2525"},
    {'*', "2125 0343 1135"},
    {'!', "2024 2626"},
    {'<', "400346"},
    {'>', "004306"},
}};

constexpr float advance = 0.95F; // of the letter height

const Glyph* find(char character) {
    const auto upper = static_cast<char>(std::toupper(static_cast<unsigned char>(character)));
    for (const Glyph& glyph : glyphs) {
        if (glyph.character == upper) return &glyph;
    }
    return nullptr;
}

void drawGlyph(const Pen& pen, std::string_view strokes, float weight, Color color) {
    std::vector<Vec2> stroke;
    const auto finish = [&] {
        if (stroke.size() == 1) pen.disc(stroke.front(), weight / 2.0F, color);
        pen.polyline(stroke, weight, color);
        stroke.clear();
    };
    for (std::size_t i = 0; i + 1 < strokes.size(); i += 2) {
        if (strokes[i] == ' ') {
            finish();
            ++i;
        }
        stroke.push_back({real(strokes[i] - '0') / 6.0F, real(strokes[i + 1] - '0') / 6.0F - 0.5F});
    }
    finish();
}

} // namespace

void drawText(const Pen& pen, std::string_view text, Vec2 at, float height, Color color, float weight,
              Align align) {
    const float width = (real(static_cast<int>(text.size())) * advance - 2.0F / 6.0F) * height;
    float x = align == Align::Centre ? at.x - width / 2.0F : at.x;
    for (const char character : text) {
        if (const Glyph* glyph = find(character)) {
            drawGlyph(pen.at({x, at.y}, height), glyph->strokes, weight, color);
        }
        x += advance * height;
    }
}

} // namespace demo
