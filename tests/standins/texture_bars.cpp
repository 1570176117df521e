#include "tests/standins/texture_bars.h"

#include <stdexcept>

namespace standins {

namespace {

constexpr Color black = {0, 0, 0};
constexpr Color almostBlack = {0, 4, 0}; // the darkest that a file can hold
constexpr Color darkGrey = {66, 65, 66};
constexpr Color grey = {132, 130, 132};
constexpr Color white = {255, 255, 255};
constexpr Color cream = {240, 225, 190};
constexpr Color mustard = {215, 160, 45};
constexpr Color brick = {165, 70, 50};
constexpr Color leaf = {60, 120, 60};
constexpr Color teal = {40, 110, 120};
constexpr Color flat = {128, 128, 255}; // a normal map that changes nothing

// The faces of a box take 20 columns each for x, y and z, and 30 rows for the positive side, then the
// negative.
// clang-format off
constexpr Bar surface[] = {
    // left top right bottom
    { 0,  0, 60,  8, cream},    { 0, 30, 60, 38, cream},
    { 3, 12, 11, 26, mustard},  {23, 12, 31, 26, brick},  {43, 12, 51, 26, teal},
    { 3, 42, 11, 56, darkGrey}, {23, 42, 31, 56, leaf},   {43, 42, 51, 56, white},
};
constexpr Bar screen[] = { // on the front
    {42,  4, 58, 26, teal},
    {42,  8, 58, 10, white}, {42, 14, 58, 16, mustard}, {42, 20, 58, 22, brick}, {42, 24, 50, 26, grey},
};
constexpr Bar leaves[] = {
    { 2,  0,  5, 60, leaf}, { 8,  0, 11, 60, leaf}, {14,  0, 18, 60, almostBlack},
    {22,  0, 25, 60, leaf}, {28,  0, 31, 60, leaf}, {34,  0, 38, 60, grey},
    {42,  0, 45, 60, leaf}, {48,  0, 51, 60, leaf}, {54,  0, 58, 50, leaf},
};
constexpr Bar lines[] = {
    { 8, 12, 50, 22, white}, {12, 26, 46, 36, mustard}, {16, 40, 40, 48, grey}, {16, 52, 36, 58, almostBlack},
};
constexpr Bar title[] = {
    { 8, 20, 52, 34, mustard}, {22, 38, 38, 41, cream}, {18, 48, 42, 50, teal}, { 2, 53, 12, 58, grey},
};
// clang-format on

} // namespace

TextureBars barsOf(catalogue::TextureKind kind)
{
    using enum catalogue::TextureKind;
    switch (kind) {
    case Color:
        return {grey, surface};
    case Normal:
        return {flat, {}};
    case Emission:
        return {black, screen};
    case Cutout:
        return {black, leaves};
    case Lettering:
        return {black, lines};
    case Picture:
        return {black, title};
    }
    throw std::logic_error("a kind of texture has no stand-in");
}

} // namespace standins
