#include "tools/capture/bitmap_font.h"

#include <algorithm>
#include <cctype>
#include <cstddef>

namespace tools::capture {

namespace {

constexpr std::uint8_t white = 235;
constexpr std::uint32_t dotColumns = 5;

/// A character, its rows from the top; the highest of 5 bits is the dot on the left.
struct Glyph {
    char character;
    std::uint8_t rows[glyphHeight];
};

// clang-format off
constexpr Glyph glyphs[] = {
    {'0', {0b01110, 0b10001, 0b10011, 0b10101, 0b11001, 0b10001, 0b01110}},
    {'1', {0b00100, 0b01100, 0b00100, 0b00100, 0b00100, 0b00100, 0b01110}},
    {'2', {0b01110, 0b10001, 0b00001, 0b00110, 0b01000, 0b10000, 0b11111}},
    {'3', {0b11110, 0b00001, 0b00001, 0b01110, 0b00001, 0b00001, 0b11110}},
    {'4', {0b00010, 0b00110, 0b01010, 0b10010, 0b11111, 0b00010, 0b00010}},
    {'5', {0b11111, 0b10000, 0b11110, 0b00001, 0b00001, 0b10001, 0b01110}},
    {'6', {0b01110, 0b10000, 0b10000, 0b11110, 0b10001, 0b10001, 0b01110}},
    {'7', {0b11111, 0b00001, 0b00010, 0b00100, 0b00100, 0b01000, 0b01000}},
    {'8', {0b01110, 0b10001, 0b10001, 0b01110, 0b10001, 0b10001, 0b01110}},
    {'9', {0b01110, 0b10001, 0b10001, 0b01111, 0b00001, 0b00001, 0b01110}},
    {'A', {0b01110, 0b10001, 0b10001, 0b11111, 0b10001, 0b10001, 0b10001}},
    {'B', {0b11110, 0b10001, 0b10001, 0b11110, 0b10001, 0b10001, 0b11110}},
    {'C', {0b01111, 0b10000, 0b10000, 0b10000, 0b10000, 0b10000, 0b01111}},
    {'D', {0b11110, 0b10001, 0b10001, 0b10001, 0b10001, 0b10001, 0b11110}},
    {'E', {0b11111, 0b10000, 0b10000, 0b11110, 0b10000, 0b10000, 0b11111}},
    {'F', {0b11111, 0b10000, 0b10000, 0b11110, 0b10000, 0b10000, 0b10000}},
    {'G', {0b01111, 0b10000, 0b10000, 0b10011, 0b10001, 0b10001, 0b01111}},
    {'H', {0b10001, 0b10001, 0b10001, 0b11111, 0b10001, 0b10001, 0b10001}},
    {'I', {0b01110, 0b00100, 0b00100, 0b00100, 0b00100, 0b00100, 0b01110}},
    {'J', {0b00001, 0b00001, 0b00001, 0b00001, 0b00001, 0b10001, 0b01110}},
    {'K', {0b10001, 0b10010, 0b10100, 0b11000, 0b10100, 0b10010, 0b10001}},
    {'L', {0b10000, 0b10000, 0b10000, 0b10000, 0b10000, 0b10000, 0b11111}},
    {'M', {0b10001, 0b11011, 0b10101, 0b10101, 0b10001, 0b10001, 0b10001}},
    {'N', {0b10001, 0b11001, 0b10101, 0b10101, 0b10011, 0b10001, 0b10001}},
    {'O', {0b01110, 0b10001, 0b10001, 0b10001, 0b10001, 0b10001, 0b01110}},
    {'P', {0b11110, 0b10001, 0b10001, 0b11110, 0b10000, 0b10000, 0b10000}},
    {'Q', {0b01110, 0b10001, 0b10001, 0b10001, 0b10101, 0b10010, 0b01101}},
    {'R', {0b11110, 0b10001, 0b10001, 0b11110, 0b10100, 0b10010, 0b10001}},
    {'S', {0b01111, 0b10000, 0b10000, 0b01110, 0b00001, 0b00001, 0b11110}},
    {'T', {0b11111, 0b00100, 0b00100, 0b00100, 0b00100, 0b00100, 0b00100}},
    {'U', {0b10001, 0b10001, 0b10001, 0b10001, 0b10001, 0b10001, 0b01110}},
    {'V', {0b10001, 0b10001, 0b10001, 0b10001, 0b01010, 0b01010, 0b00100}},
    {'W', {0b10001, 0b10001, 0b10001, 0b10101, 0b10101, 0b11011, 0b10001}},
    {'X', {0b10001, 0b01010, 0b00100, 0b00100, 0b00100, 0b01010, 0b10001}},
    {'Y', {0b10001, 0b10001, 0b01010, 0b00100, 0b00100, 0b00100, 0b00100}},
    {'Z', {0b11111, 0b00001, 0b00010, 0b00100, 0b01000, 0b10000, 0b11111}},
    {'.', {0b00000, 0b00000, 0b00000, 0b00000, 0b00000, 0b00100, 0b00100}},
    {':', {0b00000, 0b00100, 0b00100, 0b00000, 0b00100, 0b00100, 0b00000}},
    {'-', {0b00000, 0b00000, 0b00000, 0b01110, 0b00000, 0b00000, 0b00000}},
};
// clang-format on

const Glyph* findGlyph(char character)
{
    const auto capital = static_cast<char>(std::toupper(static_cast<unsigned char>(character)));
    for (const Glyph& glyph : glyphs) {
        if (glyph.character == capital) {
            return &glyph;
        }
    }
    return nullptr;
}

/// A square of `side` pixels, cut off at `right` and at the lower edge.
void drawDot(picture::RgbImage& image, std::uint32_t x, std::uint32_t y, std::uint32_t side,
             std::uint32_t right)
{
    const std::uint32_t end = std::min({x + side, right, image.size.width});
    const std::uint32_t bottom = std::min(y + side, image.size.height);
    for (std::uint32_t line = y; line < bottom; ++line) {
        for (std::uint32_t column = x; column < end; ++column) {
            const std::size_t first = 3 * (std::size_t{line} * image.size.width + column);
            std::fill_n(image.pixels.begin() + static_cast<std::ptrdiff_t>(first), 3, white);
        }
    }
}

} // namespace

void drawText(picture::RgbImage& image, std::string_view text, std::uint32_t x, std::uint32_t y,
              std::uint32_t right, std::uint32_t scale)
{
    for (const char character : text) {
        const Glyph* const glyph = findGlyph(character);
        for (std::uint32_t i = 0; glyph != nullptr && i < dotColumns * glyphHeight; ++i) {
            const std::uint32_t column = i % dotColumns;
            const std::uint32_t row = i / dotColumns;
            if ((glyph->rows[row] >> (dotColumns - 1 - column) & 1) != 0) {
                drawDot(image, x + column * scale, y + row * scale, scale, right);
            }
        }
        x += glyphWidth * scale;
    }
}

} // namespace tools::capture
